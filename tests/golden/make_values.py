#!/usr/bin/env python3
"""Makes the golden files: values.arc, an archive of values of every class, and values.extern, the
external texts of the same values.

    make_values.py FOLDER           writes both files
    make_values.py --check FOLDER   compares them with what would be written

The bytes are put together here, field by field, from the layouts that the classes state; the
library has no part in it. golden_test.cpp makes the same values in the same order.
"""

import pathlib
import struct
import sys
from dataclasses import dataclass

ENCODING = "latin-1"  # of texts and class names, a byte a character
SCHEMA = 1  # of every class
VERSION = 100  # of every external text and of the text in a decimal's archive


# Fields of archives: little-endian, without padding.


def byte(number):
    return struct.pack("<B", number)


def word(number):
    return struct.pack("<H", number)


def short(number):
    return struct.pack("<h", number)


def long(number):
    return struct.pack("<i", number)


def double(number):
    return struct.pack("<d", number)


def text(content):
    """The length in a byte; from 255 on FF and a word. Then the characters without terminator."""
    content = content.encode(ENCODING)
    if len(content) < 255:
        return byte(len(content)) + content
    assert len(content) < 65534
    return byte(255) + word(len(content)) + content


@dataclass(eq=False)
class Value:
    """A value. Without a number (text, date ...) of its own it is undefined and holds that of a
    cleared one; missing and null values have the same bytes."""

    defined = True

    @property
    def class_name(self):
        return "ZelDt" + type(self).__name__

    def archived(self):
        """The defined flag, one 32-bit word, then what the class writes."""
        return long(int(self.defined)) + self.fields()

    def extern_line(self):
        """Class, defined flag, version, whether the text is a defined string, text."""
        own = self.extern()
        cells = [self.class_name, int(self.defined), VERSION, int(own is not None), own or ""]
        return ";".join(str(cell) for cell in cells) + "\n"


def undefined(cleared):
    cleared.defined = False
    return cleared


@dataclass(eq=False)
class Long(Value):
    number: int = 0

    def fields(self):
        return long(self.number)

    def extern(self):
        """The digits of the stored number, also of an undefined value."""
        return str(self.number)


@dataclass(eq=False)
class Short(Value):
    number: int = 0

    def fields(self):
        return short(self.number)

    def extern(self):
        """The string made of the value: undefined as the value is."""
        return str(self.number) if self.defined else None


@dataclass(eq=False)
class Double(Value):
    number: float = 0.0

    def fields(self):
        return double(self.number)

    def extern(self):
        """16 significant digits."""
        return "%.16G" % self.number if self.defined else None


@dataclass(eq=False)
class Decimal(Value):
    """As it is written: sign, digits, point, decimals."""

    number: str = ""

    def fields(self):
        """The external text, empty when there is none, and its version."""
        return text(self.extern() or "") + word(VERSION)

    def extern(self):
        """First digit, point, the other digits, exponent with sign and three digits. Zeros at the
        end are digits, zeros in front are not."""
        if not self.defined:
            return None
        sign = "-" if self.number.startswith("-") else ""
        whole, _, decimals = self.number.lstrip("-").partition(".")
        digits = (whole + decimals).lstrip("0")
        exponent = len(digits) - len(decimals) - 1
        return "%s%s.%sE%s%03d" % (sign, digits[0], digits[1:], "-" if exponent < 0 else "+",
                                   abs(exponent))


@dataclass(eq=False)
class String(Value):
    content: str = ""

    def fields(self):
        return text(self.content)

    def extern(self):
        return self.content if self.defined else None


@dataclass(eq=False)
class Bool(Value):
    """Keeps the number that it was made of."""

    number: int = 0

    def fields(self):
        return long(self.number)

    def extern(self):
        return ("J" if self.number else "N") if self.defined else None


@dataclass(eq=False)
class Char(Value):
    character: str = "\0"

    def fields(self):
        return self.character.encode(ENCODING)

    def extern(self):
        return self.character if self.defined else None


@dataclass(eq=False)
class DateTime(Value):
    """A cleared one stands at 1 January 1900, 0:00:00."""

    day: int = 1
    month: int = 1
    year: int = 1900
    hour: int = 0
    minute: int = 0
    second: int = 0

    def fields(self):
        """Six words, from the second to the hour and from the year to the day. Years count from
        1900, months from 0."""
        return b"".join(long(number) for number in (
            self.second, self.minute, self.hour, self.year - 1900, self.month - 1, self.day))

    def extern(self):
        """D and the date at midnight, C and date and time else."""
        if not self.defined:
            return None
        date = "%02d%02d%4d" % (self.day, self.month, self.year)
        if (self.hour, self.minute, self.second) == (0, 0, 0):
            return "D" + date
        return "C%s%02d%02d%02d" % (date, self.hour, self.minute, self.second)


@dataclass(eq=False)
class DateZp(DateTime):
    def fields(self):
        """Year, month and day as above; no time."""
        return long(self.year - 1900) + long(self.month - 1) + long(self.day)


@dataclass(eq=False)
class Time(Value):
    """Hours and minutes, both negative for a negative amount."""

    hours: int = 0
    minutes: int = 0

    def fields(self):
        """The amount in units of 1/1200 hour, of which a minute has 20; the mode is not there."""
        return long(self.hours * 1200 + self.minutes * 20)

    def extern(self):
        """Years of 12 months of 30 days of 24 hours: T and the time when there are no days, D and
        the date when there is no time, C and both else. The sign is that of the hours."""
        if not self.defined:
            return None
        sign = "-" if self.hours < 0 else ""
        days, hour = divmod(abs(self.hours), 24)
        months, day = divmod(days, 30)
        year, month = divmod(months, 12)
        minute = abs(self.minutes)
        date = "%02d%02d%04d" % (day, month, year)
        time = "%02d%02d00" % (hour, minute)
        if days == 0:
            return "T" + sign + time
        if (hour, minute) == (0, 0):
            return "D" + sign + date
        return "C" + sign + date + time


# Of each class its defined values, then a missing and a null one.
VALUES = [
    Long(-2147483648), Long(12), undefined(Long()), undefined(Long()),
    Short(-32768), undefined(Short()), undefined(Short()),
    Double(-1.0 / 3.0), Double(1e20), undefined(Double()), undefined(Double()),
    Decimal("-12345678901234567890123.45678"), Decimal("1.50"), Decimal("0.005"),
    undefined(Decimal()), undefined(Decimal()),
    String('Größe "12;5"'), String("x" * 300), String(""), undefined(String()),
    undefined(String()),
    Bool(5), Bool(0), undefined(Bool()), undefined(Bool()),
    Char("ä"), undefined(Char()), undefined(Char()),
    DateTime(29, 2, 2000, 23, 59, 58), DateTime(1, 1, 1753), undefined(DateTime()),
    undefined(DateTime()),
    DateZp(4, 7, 1776), undefined(DateZp()), undefined(DateZp()),
    Time(-50, -45), Time(2400, 0), Time(1, 30), undefined(Time()), undefined(Time()),
]

# Behind them in the archive: the first and the last value again, none, a new object of the class
# that came first, and that one again.
NEW_VALUE = Long(4711)
AGAIN = [VALUES[0], VALUES[-1], None, NEW_VALUE, NEW_VALUE]


def archive(values):
    """A tag in front of each object: 0 for none, the number of one met before, 8000 and the number
    of a class met before, FFFF and the record of a new class. Classes and objects are numbered
    together from 1."""
    numbers = {}

    def number(what):
        numbers[what] = len(numbers) + 1

    content = b""
    for value in values:
        if value is None:
            content += word(0)
        elif value in numbers:
            content += word(numbers[value])
        else:
            if type(value) in numbers:
                content += word(0x8000 | numbers[type(value)])
            else:
                name = value.class_name.encode(ENCODING)
                content += word(0xFFFF) + word(SCHEMA) + word(len(name)) + name
                number(type(value))
            number(value)
            content += value.archived()
    return content


def golden_files():
    return {
        "values.arc": archive(VALUES + AGAIN),
        "values.extern": "".join(value.extern_line() for value in VALUES).encode(ENCODING),
    }


def main(arguments):
    check = arguments[:1] == ["--check"]
    folder = pathlib.Path(arguments[-1])
    failures = 0
    for name, content in golden_files().items():
        if not check:
            (folder / name).write_bytes(content)
        elif (folder / name).read_bytes() != content:
            print(f"FAILED: {name} is not what {pathlib.Path(__file__).name} makes")
            failures += 1
    return min(failures, 1)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
