#ifndef ZELDT_PLATFORM_FORMATS_STATUS_H
#define ZELDT_PLATFORM_FORMATS_STATUS_H

namespace zelformat {

/// How showing or reading a value ended. The failures are the error numbers.
enum class Status : unsigned char {
    Ok = 0,
    OutOfRange = 8,
    TooLong = 11,
    NotAllowed = 20, ///< the format cannot show or read such a value
    Mismatch = 21    ///< the text does not follow the format
};

} // namespace zelformat

#endif
