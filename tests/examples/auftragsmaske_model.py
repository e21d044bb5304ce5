"""What an order comes to in SQL and in an archive, from the layouts that the classes document."""

import datetime
import decimal
import struct
from fractions import Fraction

LABELS = {"Nr": "Nummer", "Auftragsdatum": "Auftrag vom", "Faellig": "Fällig am"}
UNITS_AN_HOUR = 1200
EXTERN_VERSION = 100


def number(text):
    """A German decimal number with the decimals that were written."""
    return decimal.Decimal(text.replace(".", "").replace(",", "."))


def moment(text):
    return datetime.datetime.strptime(text if " " in text else text + " 00:00", "%d.%m.%Y %H:%M")


def units(text):
    """Units of time, of 1:30, 1,50 or 2 hours."""
    hours, separator, rest = text.replace(",", ":").partition(":")
    part = Fraction(int(rest or 0), 60 if "," not in text else 100)
    return int((int(hours) + part) * UNITS_AN_HOUR) if separator else int(hours) * UNITS_AN_HOUR


def price(text):
    """Orders of the file are read to the cent."""
    return number(text).quantize(decimal.Decimal("0.01"), decimal.ROUND_HALF_UP)


# SQL

def double_in_sql(value):
    """15 digits, the point kept, an exponent where the number is too large or small."""
    digits, exponent = f"{abs(value):.14e}".split("e")
    digits, exponent = digits.replace(".", "").rstrip("0"), int(exponent)
    sign = "-" if value < 0 else ""
    if value == 0:
        return "0."
    if exponent == -1:
        return f"{sign}0.{digits}"
    if 0 <= exponent < 15:
        digits = digits.ljust(exponent + 1, "0")
        return f"{sign}{digits[:exponent + 1]}.{digits[exponent + 1:]}"
    return f"{sign}{digits[0]}.{digits[1:]}e{exponent:+04}"


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


def moment_in_sql(value):
    return quoted(f"{value:%d.%m.%Y %H:%M}")


# Archives. `value` is None where nothing is defined; what is stored then are the fields of Clear.

def text_bytes(text):
    encoded = text.encode("cp1252")
    assert len(encoded) < 255
    return bytes([len(encoded)]) + encoded


def decimal_bytes(value):
    """The external text, which is empty of an undefined value."""
    text = ""
    if value is not None:
        sign, digits, exponent = value.as_tuple()
        digits = "".join(map(str, digits)).lstrip("0")
        text = "0E+000"
        if digits:
            text = f"{'-' if sign else ''}{digits[0]}.{digits[1:]}"
            text += f"E{exponent + len(digits) - 1:+04}"
    return text_bytes(text) + struct.pack("<H", EXTERN_VERSION)


FIRST_DAY = datetime.datetime(1900, 1, 1)


def moment_bytes(value):
    value = value or FIRST_DAY
    return struct.pack("<6i", value.second, value.minute, value.hour, value.year - 1900,
                       value.month - 1, value.day)


def day_bytes(value):
    value = value or FIRST_DAY
    return struct.pack("<3i", value.year - 1900, value.month - 1, value.day)


def packed(layout):
    return lambda value: struct.pack(layout, value or 0)


# {field: (from the cell of the file, to SQL, to the archive)}
FIELDS = {
    "Nr": (int, str, packed("<i")),
    "Kunde": (int, str, packed("<i")),
    "Artikel": (str, quoted, text_bytes),
    "Menge": (lambda text: int(number(text)), str, packed("<h")),
    "Preis": (price, lambda value: f"{value:f}", decimal_bytes),
    "Rabatt": (number, lambda value: f"{value:f}", decimal_bytes),
    "Gewicht": (lambda text: float(number(text)), double_in_sql, packed("<d")),
    "Auftragsdatum": (moment, moment_in_sql, moment_bytes),
    "Faellig": (moment, moment_in_sql, day_bytes),
    "Arbeitszeit": (units, str, packed("<i")),
    "Status": (str, quoted, lambda value: value.encode("cp1252")),
    "Express": (lambda text: text == "Ja", lambda value: quoted(str(int(value))), packed("<i")),
    "Teillieferung": (None, lambda value: quoted(str(int(value))), packed("<i")),
}


def order_of(columns, cells):
    """The values of an order of the file."""
    order = {column: FIELDS[column][0](cell) if cell else None
             for column, cell in zip(columns, cells)}
    return {**order, "Teillieferung": None}


def statement(order):
    values = [FIELDS[field][1](order[field]) if order[field] is not None else "NULL"
              for field in FIELDS]
    return f"INSERT INTO Auftraege ({', '.join(FIELDS)}) VALUES ({', '.join(values)});\n"


def archive(order):
    """A new class of version 1, then each value behind whether it is defined."""
    name = b"CAuftrag"
    data = struct.pack("<HHH", 0xFFFF, 1, len(name)) + name
    for field, (_, _, to_bytes) in FIELDS.items():
        data += struct.pack("<i", order[field] is not None) + to_bytes(order[field])
    return data
