#!/usr/bin/env python3
"""Makes the sample orders: make_auftraege.py [COUNT] > auftraege.csv

10,000 orders of the customers in kunden.csv, in UTF-8 with semicolons, a line of column names in
front, numbers, dates and times as Germans write them, and broken rows between them, each broken in
another way. With COUNT, that many orders and no broken rows, to measure with. The numbers behind
the dice are fixed, so the file is the same every time.
"""

import datetime
import sys
from typing import NamedTuple, Optional

from make_kunden import CUSTOMERS, FIRST_NUMBER, Dice, line

ORDERS = 10000
FIRST_ORDER = 100001
COLUMNS = ["Nr", "Kunde", "Artikel", "Menge", "Preis", "Rabatt", "Gewicht", "Auftragsdatum",
           "Faellig", "Arbeitszeit", "Express", "Status"]

GOODS = """
    Besteckkörbe Blumenkübel Bohrfutterschlüssel Bücherstützen Büroklammern Bügelsäge Dübel
    Fächer Flügelmutter Füllfederhalter Gästehandtücher Gehörschützer Gewürzmühle Gießkanne
    Glühlampe Hängeleuchte Käsereibe Klappstühle Knöpfe Kräutertee Küchenwaage Löffel Maßband
    Müllbeutel Nähgarn Öllampe Papierkörbe Rührschüssel Rückenkissen Sägeblätter Schlüsselbund
    Schnürsenkel Schöpfkelle Schürze Spülbürste Stößel Süßstoff Tischläufer Tülle Türgriff
    Überwurfmutter Übertopf Wäscheständer Wärmflasche Würfelbecher Zählwerk Zündhölzer
""".split()

FINISHES = [
    "", ", grün", ", weiß", ", rötlich", ", verzinkt", " Größe {number}", " {number} Stück",
    " {number} mm; vernickelt", ' "Süd"', ' {number}" Länge', ", Ausführung für Großküchen",
]

# Percent times 1,000; an order without discount has an empty cell.
DISCOUNTS = [2000, 2500, 3000, 5000, 7500, 10000, 12500, 2125, 33333, 0]

# The orders come in over three years of five-day weeks, from 7 to 19 o'clock.
FIRST_MONDAY = datetime.date(2022, 1, 3)
WORKING_DAYS = 3 * 52 * 5
FIRST_HOUR = 7
MINUTES_A_DAY = 12 * 60


def german(units, places, trim=False):
    """units / 10**places with a comma and points between groups; `trim` drops zeros behind."""
    sign = "-" if units < 0 else ""
    whole, rest = divmod(abs(units), 10**places)
    decimals = f"{rest:0{places}}"
    if trim:
        decimals = decimals.rstrip("0")
    return f"{sign}{whole:,}".replace(",", ".") + ("," + decimals if decimals else "")


def customer(dice):
    """Some customers order often, many seldom."""
    rank = dice.below(CUSTOMERS) * dice.below(CUSTOMERS) // CUSTOMERS
    return FIRST_NUMBER + rank * 377 % CUSTOMERS


def quantity_and_price(dice):
    """Small parts cost tenths of a cent and are bought in lots; some things cost thousands."""
    if dice.happens(8):
        return 100 + dice.below(4900), german(5 + dice.below(2000), 3)
    pieces = 1 + dice.below(24)
    if dice.happens(2):
        pieces = -1 - dice.below(3)  # came back
    if dice.happens(4):
        return pieces, german(100000 + dice.below(400000), 2)
    return pieces, german(50 + dice.below(15000), 2)


def discount(dice):
    if dice.happens(55):
        return ""
    if dice.happens(20):
        return german(dice.below(30000), 3, trim=True)
    return german(dice.one_of(DISCOUNTS), 3, trim=True)


def weight(dice, pieces):
    if dice.happens(3):
        return ""
    return german(pieces * (5 + dice.below(2500)), 3, trim=True)


def ordered(dice, count, orders):
    """The day and the minute of the day; later orders are never from an earlier day."""
    minute = (count - 1) * WORKING_DAYS * MINUTES_A_DAY // orders
    day, minute = divmod(minute, MINUTES_A_DAY)
    week, weekday = divmod(day, 5)
    minute = FIRST_HOUR * 60 + (minute + dice.below(30)) % MINUTES_A_DAY
    return FIRST_MONDAY + datetime.timedelta(days=7 * week + weekday), minute


def day_text(dice, day):
    """Some people do without leading zeros."""
    if dice.happens(10):
        return f"{day.day}.{day.month}.{day.year}"
    return f"{day.day:02}.{day.month:02}.{day.year}"


def ordered_text(dice, day, minute):
    """Orders by letter have no time of day."""
    text = day_text(dice, day)
    return text if dice.happens(8) else f"{text} {minute // 60:02}:{minute % 60:02}"


def due(dice, day, express):
    """The day that the customer wants, where he wants one."""
    if not express and dice.happens(35):
        return ""
    days = 2 + dice.below(13) if express else 20 + dice.below(60)
    return day_text(dice, day + datetime.timedelta(days=days))


def working_time(dice):
    """In minutes, or in hundredths of an hour, which some workshops write."""
    if dice.happens(12):
        return ""
    if dice.happens(5):
        return str(1 + dice.below(9))
    minutes = 3 * (1 + dice.below(160))
    if dice.happens(25):
        return f"{minutes // 60},{minutes % 60 * 5 // 3:02}"
    return f"{minutes // 60}:{minutes % 60:02}"


def status(dice, count, orders):
    """O open, L delivered, B paid. Of the latest orders most are open."""
    if dice.happens(60 if count * 20 > orders * 19 else 3):
        return "O"
    return "L" if dice.happens(20) else "B"


def schedule(dice, count, orders):
    day, minute = ordered(dice, count, orders)
    express = dice.happens(9)
    return [ordered_text(dice, day, minute), due(dice, day, express), working_time(dice),
            "Ja" if express else "Nein", status(dice, count, orders)]


def order(dice, number):
    article = dice.one_of(GOODS) + dice.one_of(FINISHES).format(number=2 + dice.below(30))
    pieces, price = quantity_and_price(dice)
    return [number, customer(dice), article, pieces, price, discount(dice), weight(dice, pieces)]


class Broken(NamedTuple):
    """A row that no program should swallow, the column at fault ("-": the row as a whole), and the
    number of the first cause that zelconv gives. None: the row has the right form, and only a
    program that knows what an order is can refuse it, for this reason."""

    row: str
    column: str
    cause: Optional[int]
    reason: Optional[str] = None


SOUND = ["10017", "Löffel", "12", "1,20", "", "0,5", "14.03.2022 09:30", "20.04.2022", "1:30",
         "Nein", "O"]
MISSING = "Angabe fehlt"

# Behind which order an order with one bad cell stands, the column and the cell.
BAD_CELLS = {
    210: ("Menge", "32768", 8),
    333: ("Auftragsdatum", "29.02.2001 10:15", 8),
    480: ("Arbeitszeit", "13:75", 8),
    611: ("Menge", "-32769", 8),
    777: ("Express", "vielleicht", 21),
    907: ("Menge", "1,5", 21),
    1111: ("Faellig", "31.04.2022", 8),
    1333: ("Menge", "zwölf", 21),
    1515: ("Status", "offen", 11),
    1702: ("Preis", "", None, MISSING),
    1900: ("Arbeitszeit", "1,5", 21),
    2048: ("Preis", "12.5.0", 21),
    2222: ("Auftragsdatum", "2022-03-14 09:30", 21),
    2421: ("Preis", "12,50,00", 21),
    2600: ("Express", "", None, MISSING),
    2766: ("Preis", "19.99", 21),
    2900: ("Faellig", "30.02.2024", 8),
    3003: ("Preis", "12,50 EUR", 21),
    3210: ("Preis", "12,5O", 21),
    3456: ("Arbeitszeit", "1:30 Std.", 21),
    3777: ("Preis", "gratis", 21),
    3900: ("Auftragsdatum", "", None, MISSING),
    4100: ("Preis", "12345678901234567890123456789", 24),
    4321: ("Auftragsdatum", "14.03.2022 24:00", 8),
    4444: ("Preis", "9" * 39, 11),
    4600: ("Faellig", "bald", 21),
    4802: ("Rabatt", "5%", 21),
    5115: ("Rabatt", "--5", 21),
    5300: ("Status", "X", None, "Status unbekannt"),
    5550: ("Gewicht", "1E999", 8),
    5700: ("Arbeitszeit", "1789569:00", 8),
    5901: ("Gewicht", "12.75", 21),
    6100: ("Faellig", "13.03.2022", None, "Fällig vor dem Auftrag"),
    6262: ("Gewicht", "schwer", 21),
    6480: ("Kunde", "", None, MISSING),
    6666: ("Kunde", "1oo17", 21),
    6800: ("Auftragsdatum", "14.03.2022 09.30", 21),
    7007: ("Kunde", "4294967296", 8),
    7298: ("Kunde", "99999", None, "Kunde unbekannt"),
    7400: ("Auftragsdatum", "14.13.2022", 8),
    7531: ("Nr", "A-7531", 21),
    7777: ("Express", "2", 21),
    8600: ("Status", "", None, MISSING),
    9120: ("Menge", "", None, MISSING),
    9555: ("Faellig", "14.3.222", 21),
}


def with_bad_cell(after, column, cell, cause, reason=None):
    cells = [str(900000 + after), *SOUND]
    cells[COLUMNS.index(column)] = cell
    return Broken(";".join(cells) + "\n", column, cause, reason)


TAIL = ";" + ";".join(SOUND[2:]) + "\n"

# Behind which order a broken row stands.
BROKEN_ROWS = {
    **{after: with_bad_cell(after, *bad) for after, bad in BAD_CELLS.items()},
    8008: Broken("908008;10017;Löffel;12;1,20\n", "Rabatt", 101),
    8200: Broken("908200;10017;Löffel;12;1,20;;0,5;14.03.2022 09:30\n", "Faellig", 101),
    8400: Broken("908400;10017;Löffel; poliert" + TAIL, "-", 102),
    8888: Broken('908888;10017;Löffel "Süd"' + TAIL, "-", 103),
    10000: Broken("910000;10017;Hier bricht die Datei a", "Menge", 101),
}


def main():
    # What an order is and when it is: dice of their own, so that neither moves the other.
    dice, calendar_dice = Dice(29), Dice(31)
    out = sys.stdout.buffer
    out.write(line(COLUMNS))
    orders, broken_rows = ORDERS, BROKEN_ROWS
    if len(sys.argv) > 1:
        orders, broken_rows = int(sys.argv[1]), {}
    for count in range(1, orders + 1):
        out.write(line(order(dice, FIRST_ORDER + count - 1) +
                       schedule(calendar_dice, count, orders)))
        if count in broken_rows:
            out.write(broken_rows[count].row.encode("utf-8"))


if __name__ == "__main__":
    main()
