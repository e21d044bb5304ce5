#!/usr/bin/env python3
"""Makes the sample orders: make_auftraege.py [COUNT] > auftraege.csv

10,000 orders of the customers in kunden.csv, in UTF-8 with semicolons, a line of column names in
front, numbers as Germans write them, and broken rows between them, each broken in another way. With
COUNT, that many orders and no broken rows, to measure with. The numbers behind the dice are fixed,
so the file is the same every time.
"""

import sys
from typing import NamedTuple, Optional

from make_kunden import CUSTOMERS, FIRST_NUMBER, Dice, line

ORDERS = 10000
FIRST_ORDER = 100001
COLUMNS = ["Nr", "Kunde", "Artikel", "Menge", "Preis", "Rabatt", "Gewicht"]

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


def order(dice, number):
    article = dice.one_of(GOODS) + dice.one_of(FINISHES).format(number=2 + dice.below(30))
    pieces, price = quantity_and_price(dice)
    return [number, customer(dice), article, pieces, price, discount(dice), weight(dice, pieces)]


class Broken(NamedTuple):
    """A row that no program should swallow, the column at fault ("-": the row as a whole), and the
    number of the first cause that zelconv gives. None: the row has the right form, and only a
    program that knows what an order is can refuse it."""

    row: str
    column: str
    cause: Optional[int]


# Behind which order a broken row stands.
BROKEN_ROWS = {
    210: Broken("900210;10017;Löffel;32768;1,20;;0,5\n", "Menge", 8),
    611: Broken("900611;10017;Löffel;-32769;1,20;;0,5\n", "Menge", 8),
    907: Broken("900907;10017;Löffel;1,5;1,20;;0,5\n", "Menge", 21),
    1333: Broken("901333;10017;Löffel;zwölf;1,20;;0,5\n", "Menge", 21),
    1702: Broken("901702;10017;Löffel;12;;;0,5\n", "Preis", None),
    2048: Broken("902048;10017;Löffel;12;12.5.0;;0,5\n", "Preis", 21),
    2421: Broken("902421;10017;Löffel;12;12,50,00;;0,5\n", "Preis", 21),
    2766: Broken("902766;10017;Löffel;12;19.99;;0,5\n", "Preis", 21),
    3003: Broken("903003;10017;Löffel;12;12,50 EUR;;0,5\n", "Preis", 21),
    3210: Broken("903210;10017;Löffel;12;12,5O;;0,5\n", "Preis", 21),
    3777: Broken("903777;10017;Löffel;12;gratis;;0,5\n", "Preis", 21),
    4100: Broken("904100;10017;Löffel;12;12345678901234567890123456789;;0,5\n", "Preis", 24),
    4444: Broken("904444;10017;Löffel;12;" + "9" * 39 + ";;0,5\n", "Preis", 11),
    4802: Broken("904802;10017;Löffel;12;1,20;5%;0,5\n", "Rabatt", 21),
    5115: Broken("905115;10017;Löffel;12;1,20;--5;0,5\n", "Rabatt", 21),
    5550: Broken("905550;10017;Löffel;12;1,20;;1E999\n", "Gewicht", 8),
    5901: Broken("905901;10017;Löffel;12;1,20;;12.75\n", "Gewicht", 21),
    6262: Broken("906262;10017;Löffel;12;1,20;;schwer\n", "Gewicht", 21),
    6480: Broken("906480;;Löffel;12;1,20;;0,5\n", "Kunde", None),
    6666: Broken("906666;1oo17;Löffel;12;1,20;;0,5\n", "Kunde", 21),
    7007: Broken("907007;4294967296;Löffel;12;1,20;;0,5\n", "Kunde", 8),
    7298: Broken("907298;99999;Löffel;12;1,20;;0,5\n", "Kunde", None),
    7531: Broken("A-7531;10017;Löffel;12;1,20;;0,5\n", "Nr", 21),
    8008: Broken("908008;10017;Löffel;12;1,20\n", "Rabatt", 101),
    8400: Broken("908400;10017;Löffel; poliert;12;1,20;;0,5\n", "-", 102),
    8888: Broken('908888;10017;Löffel "Süd";12;1,20;;0,5\n', "-", 103),
    9120: Broken("909120;10017;Löffel;;1,20;;0,5\n", "Menge", None),
    10000: Broken("910000;10017;Hier bricht die Datei a", "Menge", 101),
}


def main():
    dice = Dice(29)
    out = sys.stdout.buffer
    out.write(line(COLUMNS))
    orders, broken_rows = ORDERS, BROKEN_ROWS
    if len(sys.argv) > 1:
        orders, broken_rows = int(sys.argv[1]), {}
    for count in range(1, orders + 1):
        out.write(line(order(dice, FIRST_ORDER + count - 1)))
        if count in broken_rows:
            out.write(broken_rows[count].row.encode("utf-8"))


if __name__ == "__main__":
    main()
