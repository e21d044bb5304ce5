#!/usr/bin/env python3
"""Makes what the invoice run needs beside customers and orders:

    make_rechnungslauf.py artikel       > artikel.csv        articles and their tax rates
    make_rechnungslauf.py konditionen   > konditionen.csv    terms of payment of the customers
    make_rechnungslauf.py arbeitszeiten > arbeitszeiten.csv  times worked on the orders

In UTF-8 with semicolons, a line of column names in front, numbers, dates and times as Germans write
them, and broken rows between the others, each broken in another way. The numbers behind the dice
are fixed, so the files are the same every time.
"""

import datetime
import sys
from typing import NamedTuple

from make_auftraege import FIRST_ORDER, GOODS, ORDERS, german, ordered
from make_kunden import CUSTOMERS, FIRST_NUMBER, Dice, line

MISSING = "Angabe fehlt"
RANGE = "Wert außerhalb des Wertebereichs"
FORMAT = "Format nicht eingehalten"
CELL = "Zelle fehlt"


class Broken(NamedTuple):
    """A row that no program should swallow, the column at fault ("-": the row as a whole) and the
    reason."""

    row: str
    column: str
    reason: str


# Articles: an order's article begins with the name of one of these.

ARTICLE_COLUMNS = ["Nr", "Bezeichnung", "Einheit", "Steuersatz"]
REDUCED = ["Kräutertee", "Süßstoff"]
LOTS = ["Bohrfutterschlüssel", "Büroklammern", "Dübel", "Flügelmutter", "Müllbeutel", "Zündhölzer"]
FIRST_ARTICLE = 101

# Behind which article a broken row stands. There is no sound row for "Tülle": orders
# of one cannot be invoiced.
WITHOUT = ["Tülle"]
BROKEN_ARTICLES = {
    3: Broken("9O3;Zollstock;Stück;19\n", "Nr", FORMAT),
    11: Broken("911;Löffel;Stück\n", "Steuersatz", CELL),
    20: Broken("920;;Stück;19\n", "Bezeichnung", MISSING),
    26: Broken("926;Kräutertee;Packung;19\n", "Bezeichnung", "Artikel doppelt"),
    33: Broken("101;Zollstock;Stück;19\n", "Nr", "Nummer doppelt"),
    38: Broken("938;Tülle;Stück;16\n", "Steuersatz", "Steuersatz unbekannt"),
    41: Broken('941;Tülle "Süd";Stück;19\n', "-", "Anführungszeichen falsch gesetzt"),
    45: Broken("945;Łukasz-Lampe;Stück;19\n", "Bezeichnung",
               "Zeichen, das Windows-1252 nicht hat"),
}


def article_rows():
    for count, name in enumerate((good for good in GOODS if good not in WITHOUT), 1):
        unit = "Packung" if name in REDUCED else "100 Stück" if name in LOTS else "Stück"
        yield line([FIRST_ARTICLE + count - 1, name, unit, 7 if name in REDUCED else 19])
        yield BROKEN_ARTICLES.get(count)


# Terms: days to pay, percent of discount for those who pay at once, price of an hour of work. A
# customer who has none gets the usual ones; so does one with an empty cell, one cell at a time.

TERMS_COLUMNS = ["Kunde", "Zahlungsziel", "Skonto", "Stundensatz"]
DAYS = [0, 8, 10, 14, 20, 30, 45, 60, 90]
DISCOUNTS = [1000, 1500, 2000, 2250, 3000]
RATES = [4200, 4850, 5400, 5999, 6525, 7833]

BROKEN_TERMS = {
    60: Broken("99999;30;2;\n", "Kunde", "Kunde unbekannt"),
    140: Broken("10001;-5;;\n", "Zahlungsziel", "Zahlungsziel unmöglich"),
    222: Broken("10002;366;;\n", "Zahlungsziel", "Zahlungsziel unmöglich"),
    301: Broken("10003;32768;;\n", "Zahlungsziel", RANGE),
    377: Broken("10004;30;drei;\n", "Skonto", FORMAT),
    410: Broken("10005;30;101;\n", "Skonto", "Prozentsatz unmöglich"),
    488: Broken("10006;30;;58,50 EUR\n", "Stundensatz", FORMAT),
    531: Broken(";30;;\n", "Kunde", MISSING),
    560: Broken("10007;30;;-1\n", "Stundensatz", "Preis unmöglich"),
}
# A customer who stands there for a second time: the row behind which it stands.
SECOND_TERMS = 333


def terms(dice, customer):
    return [customer, dice.one_of(DAYS) if dice.happens(85) else "",
            german(dice.one_of(DISCOUNTS), 3, trim=True) if dice.happens(30) else "",
            german(dice.one_of(RATES), 2) if dice.happens(60) else ""]


def terms_rows():
    dice = Dice(37)
    rows = 0
    for customer in range(FIRST_NUMBER, FIRST_NUMBER + CUSTOMERS):
        row = terms(dice, customer)
        if not dice.happens(60):
            continue
        rows += 1
        yield line(row)
        yield BROKEN_TERMS.get(rows)
        if rows == SECOND_TERMS:
            yield Broken(f"{customer};30;2;50\n", "Kunde", "Kunde doppelt")


# Times worked: from, to, and the break in between; up to three for an order.

TIMES_COLUMNS = ["Nr", "Auftrag", "Mitarbeiter", "Beginn", "Ende", "Pause"]
WORKERS = ["Änne Böhm", "Björn Weiß", "Claire Déschamps", "Emre Çelik", "Götz Paßmann", "Jörg Maaß",
           "Oda Nørgaard", "Zoë Ünal"]
SOUND = ["100020", "Änne Böhm", "17.01.2022 08:00", "17.01.2022 12:00", "0:15"]

# Behind which time a time with one bad cell stands, the column and the cell.
BAD_TIMES = {
    77: ("Auftrag", "555555", "Auftrag unbekannt"),
    250: ("Auftrag", "900210", "Auftrag unbekannt"),  # the order that was refused
    444: ("Ende", "17.01.2022 07:59", "Ende vor dem Beginn"),
    610: ("Beginn", "", MISSING),
    801: ("Ende", "17.01.2022 25:00", RANGE),
    999: ("Pause", "4:01", "Pause länger als die Arbeit"),
    1234: ("Pause", "0:75", RANGE),
    1500: ("Mitarbeiter", "Łucja Wójcik", "Zeichen, das Windows-1252 nicht hat"),
    1777: ("Beginn", "31.02.2022 08:00", RANGE),
    2020: ("Auftrag", "1oo020", FORMAT),
    2345: ("Pause", "eine Stunde", FORMAT),
    2600: ("Pause", "-0:15", "Pause unter null"),
    2900: ("Ende", "", MISSING),
}
OTHER_TIMES = {
    1111: Broken("5\n", "Auftrag", CELL),
    1900: Broken("1;" + ";".join(SOUND) + "\n", "Nr", "Nummer doppelt"),
    2222: Broken("902222;" + ";".join(SOUND) + ";\n", "-", "Zu viele Zellen"),
}
LAST_TIME = Broken('999999;100020;"Hier bricht die Datei a', "-",
                   "Anführungszeichen falsch gesetzt")


def with_bad_cell(after, column, cell, reason):
    cells = [str(900000 + after), *SOUND]
    cells[TIMES_COLUMNS.index(column)] = cell
    return Broken(";".join(cells) + "\n", column, reason)


BROKEN_TIMES = {**{after: with_bad_cell(after, *bad) for after, bad in BAD_TIMES.items()},
                **OTHER_TIMES}


def moment_text(moment):
    return f"{moment:%d.%m.%Y %H:%M}"


def break_text(dice, minutes):
    """In minutes, or in hundredths of an hour; no cell for no break."""
    if minutes < 6 * 60 and not dice.happens(20):
        return "" if dice.happens(70) else "0:00"
    if dice.happens(30):
        return dice.one_of(["0,25", "0,50", "0,75"])
    return dice.one_of(["0:15", "0:20", "0:30", "0:45"])


def times(dice, order, day):
    """Some are worked at night, some go on past midnight."""
    for _ in range(1 + dice.below(3)):
        day += datetime.timedelta(days=1 + dice.below(4))
        minute = (20 if dice.happens(6) else 6) * 60 + dice.below(220)
        begin = datetime.datetime(day.year, day.month, day.day) + datetime.timedelta(minutes=minute)
        minutes = 60 + dice.below(480)
        end = begin + datetime.timedelta(minutes=minutes)
        yield [order, dice.one_of(WORKERS), moment_text(begin), moment_text(end),
               break_text(dice, minutes)]


def times_rows():
    dice = Dice(41)
    rows = 0
    for count in range(1, ORDERS + 1):
        day, _ = ordered(dice, count, ORDERS)
        if not dice.happens(17):
            continue
        for row in times(dice, FIRST_ORDER + count - 1, day):
            rows += 1
            yield line([rows, *row])
            yield BROKEN_TIMES.get(rows)
    yield LAST_TIME


FILES = {"artikel": (ARTICLE_COLUMNS, article_rows),
         "konditionen": (TERMS_COLUMNS, terms_rows),
         "arbeitszeiten": (TIMES_COLUMNS, times_rows)}


def rows_of(name):
    """The bytes of each row, or what is wrong with it and has them."""
    return (row for row in FILES[name][1]() if row is not None)


def main():
    if len(sys.argv) != 2 or sys.argv[1] not in FILES:
        sys.exit(f"make_rechnungslauf.py {'|'.join(FILES)}")
    out = sys.stdout.buffer
    out.write(line(FILES[sys.argv[1]][0]))
    for row in rows_of(sys.argv[1]):
        out.write(row if isinstance(row, bytes) else row.row.encode("utf-8"))


if __name__ == "__main__":
    main()
