//! rust_decimal behind calls of C. The functions are declared in decimals.h; what cannot be
//! computed ends the program.

use rust_decimal::prelude::*;
use rust_decimal::RoundingStrategy;
use std::io::Write;

#[no_mangle]
pub extern "C" fn zelbench_rust_add(a: &Decimal, b: &Decimal, result: &mut Decimal) {
    *result = a + b;
}

#[no_mangle]
pub extern "C" fn zelbench_rust_multiply(a: &Decimal, b: &Decimal, result: &mut Decimal) {
    *result = a * b;
}

#[no_mangle]
pub extern "C" fn zelbench_rust_divide(a: &Decimal, b: &Decimal, result: &mut Decimal) {
    *result = a / b;
}

#[no_mangle]
pub extern "C" fn zelbench_rust_remainder(a: &Decimal, b: &Decimal, result: &mut Decimal) {
    *result = a % b;
}

#[no_mangle]
pub extern "C" fn zelbench_rust_less(a: &Decimal, b: &Decimal) -> i32 {
    (a < b) as i32
}

#[no_mangle]
pub extern "C" fn zelbench_rust_round(number: &Decimal, places: u32, result: &mut Decimal) {
    *result = number.round_dp_with_strategy(places, RoundingStrategy::MidpointAwayFromZero);
}

#[no_mangle]
pub extern "C" fn zelbench_rust_from_double(number: f64, result: &mut Decimal) {
    *result = Decimal::from_f64(number).unwrap();
}

#[no_mangle]
pub extern "C" fn zelbench_rust_to_double(number: &Decimal) -> f64 {
    number.to_f64().unwrap()
}

/// # Safety
/// `text` are `length` bytes.
#[no_mangle]
pub unsafe extern "C" fn zelbench_rust_parse(text: *const u8, length: usize, result: &mut Decimal) {
    let bytes = std::slice::from_raw_parts(text, length);
    *result = Decimal::from_str(std::str::from_utf8_unchecked(bytes)).unwrap();
}

/// # Safety
/// `buffer` has room for `room` bytes.
#[no_mangle]
pub unsafe extern "C" fn zelbench_rust_print(
    number: &Decimal,
    buffer: *mut u8,
    room: usize,
) -> usize {
    let mut left = std::slice::from_raw_parts_mut(buffer, room);
    write!(left, "{}", number).unwrap();
    room - left.len()
}
