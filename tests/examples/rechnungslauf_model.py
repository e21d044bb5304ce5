"""What an invoice run comes to, computed with Python's decimals from the same files, and what its
report, table, records and archives say then."""

import csv
import datetime
import decimal
import io
import struct
from decimal import Decimal

from auftragsmaske_model import (day_bytes, decimal_bytes, moment, number, packed, price,
                                 text_bytes, units)
from examples_support import REASONS, SAMPLE, broken_orders, german, good_orders, refused_orders

import make_kunden  # lies beside its data, and so does the next one
import make_rechnungslauf

decimal.getcontext().prec = 60

CENT = Decimal("0.01")
UNITS_AN_HOUR = 1200
UNITS_A_QUARTER = UNITS_AN_HOUR // 4
RATES = (19, 7)
USUAL_DAYS, USUAL_HOUR = 14, Decimal("56.00")


def cents(value):
    """ROUND_HALF_UP takes ties away from zero."""
    return value.quantize(CENT, decimal.ROUND_HALF_UP)


def due_date(date, days):
    date += datetime.timedelta(days=days)
    while date.isoweekday() > 5:
        date += datetime.timedelta(days=1)
    return date


# The sample files, without the rows that are broken

def customers():
    """{number: name}; the broken rows have numbers of their own."""
    text = (SAMPLE / "kunden.csv").read_text("utf-8", errors="replace")
    return {int(row[0]): row[1] for row in csv.reader(io.StringIO(text), delimiter=";")
            if row[0].isdigit() and 10001 <= int(row[0]) <= 11000}


def sound_rows(name):
    for row in make_rechnungslauf.rows_of(name):
        if isinstance(row, bytes):
            yield from csv.reader([row.decode("utf-8")], delimiter=";")


def terms():
    """{customer: (days, percent of cash discount or None, price of an hour)}"""
    return {int(customer): (int(days) if days else USUAL_DAYS,
                            number(percent) if percent else None,
                            number(hour) if hour else USUAL_HOUR)
            for customer, days, percent, hour in sound_rows("konditionen")}


def articles():
    """{name: tax rate}"""
    return {name: int(rate) for _, name, _, rate in sound_rows("artikel")}


def worked():
    """{order: units}"""
    times = {}
    for _, order, _, begin, end, pause in sound_rows("arbeitszeiten"):
        minutes = (moment(end) - moment(begin)).total_seconds() / 60
        time = int(minutes * UNITS_AN_HOUR / 60) - (units(pause) if pause else 0)
        times[int(order)] = times.get(int(order), 0) + time
    return times


# What is refused

def refused_by_kunden():
    """(line, column, reason); a broken row stands behind a line end."""
    reasons = (("Nr", REASONS[21]), ("Nr", REASONS[8]), ("Nr", REASONS[21]), ("Ort", REASONS[101]),
               ("", REASONS[102]), ("", REASONS[103]), ("", REASONS[103]),
               ("Name", "Zeichen, das Windows-1252 nicht hat"),
               ("Name", "Zeichen, das Windows-1252 nicht hat"), ("", REASONS[103]))
    content = (SAMPLE / "kunden.csv").read_bytes()
    for (_, row), (column, reason) in zip(sorted(make_kunden.BROKEN_ROWS.items()), reasons):
        row = row.encode("utf-8") if isinstance(row, str) else row
        yield content.count(b"\n", 0, content.index(b"\n" + row) + 1) + 1, column, reason


def refused_by(name):
    for line, row in enumerate(make_rechnungslauf.rows_of(name), 2):
        if not isinstance(row, bytes):
            yield line, row.column if row.column != "-" else "", row.reason


def refused_lines():
    for name, rows in (("kunden", refused_by_kunden()), ("konditionen", refused_by("konditionen")),
                       ("artikel", refused_by("artikel"))):
        for line, column, reason in rows:
            yield f"{name}.csv, Zeile {line}{', ' + column if column else ''}: {reason}"
    # An order of a customer that does not exist is an order nevertheless.
    for line in refused_orders():
        if not line.endswith("Kunde unbekannt"):
            yield line.replace("Aufträge", "auftraege.csv")
    for line, column, reason in refused_by("arbeitszeiten"):
        yield f"arbeitszeiten.csv, Zeile {line}{', ' + column if column else ''}: {reason}"


# Invoices

class Position:
    """Quantity of goods or time of work; the other is None."""

    def __init__(self, order, text, amount, rate, net, **values):
        self.order, self.text, self.price, self.rate, self.net = order, text, amount, rate, net
        self.quantity, self.time = values.get("quantity"), values.get("time")
        self.discount = values.get("discount")

    def row(self, invoice, line):
        return [invoice, line, self.order, "A" if self.quantity is None else "W", self.text,
                self.quantity, self.time, self.price, self.discount, self.rate, self.net]

    def archive(self, invoice, line):
        return [(invoice, packed("<i")), (line, packed("<h")), (self.order, packed("<i")),
                ("A" if self.quantity is None else "W", lambda kind: kind.encode()),
                (self.text, text_bytes), (self.quantity, packed("<h")), (self.time, packed("<i")),
                (self.price, decimal_bytes), (self.discount, decimal_bytes),
                (self.rate, packed("<h")), (self.net, decimal_bytes)]


class Invoice:
    def __init__(self, nr, customer, name, date, conditions, positions, weight):
        days, percent, _ = conditions
        self.nr, self.customer, self.name, self.date = nr, customer, name, date
        self.positions, self.weight = positions, weight
        self.due = due_date(date, days)
        self.net = [sum((p.net for p in positions if p.rate == rate), Decimal("0.00"))
                    for rate in RATES]
        self.tax = [cents(net * rate / 100) for net, rate in zip(self.net, RATES)]
        self.gross = sum(self.net) + sum(self.tax)
        self.cash = None
        if percent is not None and self.gross > 0:
            self.cash = (self.gross * percent / 100).quantize(CENT, decimal.ROUND_DOWN)
        self.time = sum(p.time or 0 for p in positions)

    def row(self):
        return [self.nr, self.customer, self.name, self.date, self.due, *self.net, *self.tax,
                self.gross, self.cash, self.time, self.weight]

    def archive_name(self):
        return f"rechnung-{self.nr:06}.arc"

    def archive(self):
        name = b"CRechnung"
        values = [(self.nr, packed("<i")), (self.customer, packed("<i")), (self.name, text_bytes),
                  (self.date, day_bytes), (self.due, day_bytes),
                  *((value, decimal_bytes) for value in (*self.net, *self.tax, self.gross,
                                                         self.cash)),
                  (self.time, packed("<i")), (self.weight, packed("<d"))]
        data = struct.pack("<HHH", 0xFFFF, 1, len(name)) + name + archived(values)
        data += struct.pack("<H", len(self.positions))
        return data + b"".join(archived(p.archive(self.nr, line))
                               for line, p in enumerate(self.positions, 1))


def archived(values):
    """Each value behind whether it is defined."""
    return b"".join(struct.pack("<i", value is not None) + to_bytes(value)
                    for value, to_bytes in values)


class Run:
    """The invoices over the orders of the sample that came in from one date to another."""

    def __init__(self, date, since=datetime.date(1, 1, 1), first=1):
        self.date, self.unbilled = date, []
        names, conditions, rates, times = customers(), terms(), articles(), worked()
        accounts = {}
        for cells in all_orders():
            order, customer, article = int(cells[0]), int(cells[1]), cells[2]
            day = moment(cells[7]).date()
            if cells[11] == "B" or day > date:
                continue
            rate = rates.get(article.split(" ")[0].split(",")[0])
            if customer not in names:
                self.unbilled.append((order, "Kunde: Kunde unbekannt"))
            elif rate is None:
                self.unbilled.append((order, "Artikel: Artikel unbekannt"))
            elif cells[11] == "L" and day > since:
                condition = conditions.get(customer, (USUAL_DAYS, None, USUAL_HOUR))
                positions, weight = accounts.setdefault(customer, ([], [0.0]))
                positions += self.positions(cells, rate, times.get(order), condition)
                weight[0] += float(number(cells[6] or "0"))
        self.unbilled.sort()
        self.invoices = [
            Invoice(nr, customer, names[customer], date,
                    conditions.get(customer, (USUAL_DAYS, None, USUAL_HOUR)), positions, weight[0])
            for nr, (customer, (positions, weight)) in enumerate(sorted(accounts.items()), first)]

    @staticmethod
    def positions(cells, rate, time, condition):
        order, quantity, amount = int(cells[0]), int(number(cells[3])), price(cells[4])
        discount = number(cells[5]) if cells[5] else None
        net = cents(quantity * amount * (100 - (discount or 0)) / 100)
        yield Position(order, cells[2], amount, rate, net, quantity=quantity,
                       discount=discount and discount.quantize(Decimal("0.001")))
        if time is not None:
            quarters = -(-time // UNITS_A_QUARTER)
            yield Position(order, f"Arbeitszeit zu Auftrag {order}", condition[2], 19,
                           cents(condition[2] * quarters / 4), time=quarters * UNITS_A_QUARTER)

    # What there is to be seen

    def table(self):
        out = io.StringIO()
        writer = csv.writer(out, delimiter=";", lineterminator="\n")
        writer.writerow("Rechnung;Kunde;Name;Datum;Faellig;Positionen;Arbeitszeit;Gewicht;Netto19;"
                        "Steuer19;Netto7;Steuer7;Brutto;Skonto".split(";"))
        for one in self.invoices:
            writer.writerow([one.nr, one.customer, one.name, day(one.date), day(one.due),
                             len(one.positions), hours(one.time), kilograms(one.weight),
                             german(one.net[0]), german(one.tax[0]), german(one.net[1]),
                             german(one.tax[1]), german(one.gross),
                             german(one.cash) if one.cash is not None else ""])
        return out.getvalue()

    def sum(self, value):
        return sum((value(one) for one in self.invoices), Decimal("0.00"))

    def report(self, refused):
        lines = [f"Rechnungen vom {day(self.date)}", "",
                 line("Rechnung", "Kunde", "Name", "Pos.", "Stunden", "Netto", "Steuer", "Brutto",
                      "fällig am")]
        lines += [line(one.nr, one.customer, one.name, len(one.positions), hours(one.time),
                       german(sum(one.net)), german(sum(one.tax)), german(one.gross), day(one.due))
                  for one in self.invoices]
        lines.append("")
        for i, rate in enumerate(RATES):
            net = self.sum(lambda one, i=i: one.net[i])
            tax = self.sum(lambda one, i=i: one.tax[i])
            lines.append(line("", "", f"Steuersatz {rate} %", "", "", german(net), german(tax),
                              german(net + tax), ""))
        lines.append(line("", "", "Alle Rechnungen",
                          german(sum(len(one.positions) for one in self.invoices)),
                          hours(sum(one.time for one in self.invoices)),
                          german(self.sum(lambda one: sum(one.net))),
                          german(self.sum(lambda one: sum(one.tax))),
                          german(self.sum(lambda one: one.gross)), ""))
        weight = sum(one.weight for one in self.invoices)
        lines += ["", f"Gewicht der Waren: {kilograms(weight)} kg",
                  "", f"Nicht berechenbare Aufträge: {len(self.unbilled)}",
                  *(f"Auftrag {order}, {reason}" for order, reason in self.unbilled), "",
                  f"Abgewiesene Zeilen: {len(refused)}", *refused]
        return "\n".join(lines) + "\n"


def all_orders():
    """With those that are broken for programs only that know who the customers are."""
    yield from good_orders()
    for broken in broken_orders().values():
        if broken.reason == "Kunde unbekannt":
            yield broken.row.rstrip("\n").split(";")


def day(date):
    return f"{date:%d.%m.%Y}"


def hours(time):
    return f"{time // UNITS_AN_HOUR:02}:{time % UNITS_AN_HOUR * 60 // UNITS_AN_HOUR:02}"


def kilograms(weight):
    return german(Decimal(weight).quantize(Decimal("0.001"), decimal.ROUND_HALF_UP))


def line(nr, customer, name, positions, time, net, tax, gross, due):
    name = name if len(name) <= 30 else name[:29] + "…"
    return (f"{nr:>8}  {customer:>6}  {name:<30}  {positions:>5}  {time:>8}  {net:>13}  {tax:>12}"
            f"  {gross:>13}  {due}").rstrip()
