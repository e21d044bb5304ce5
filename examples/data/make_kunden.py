#!/usr/bin/env python3
"""Makes the sample customers: make_kunden.py [COUNT] > kunden.csv

1,000 customers in UTF-8 with semicolons, a line of column names in front, and ten broken rows
between them, each broken in another way. With COUNT, that many customers and no broken rows, to
measure with. All names are put together from the lists below; the numbers behind the dice are
fixed, so the file is the same every time.
"""

import csv
import io
import random
import sys

CUSTOMERS = 1000
FIRST_NUMBER = 10001
COLUMNS = ["Nr", "Name", "Strasse", "PLZ", "Ort", "Bemerkung"]

FAMILY_NAMES = """
    Ackermann Albrecht Ärmel Bäcker Barth Bauer Beck Böhm Brandt Büttner Busch Çelik Christiansen
    Déschamps Diehl Döring Ebert Engel Färber Fiedler Frieß Fröhlich Fuchs Gärtner Geiß Goetz Götz
    Graf Groß Großmann Günther Haas Häußler Heß Hoffmann Höfer Huber Hübner Jäger Janßen Jürgens
    Kästner Keßler Kindermann Köhler König Krämer Krüger Kühn Lang Lehmann Löffler Lütke Maaß Mahler
    Märtens Meißner Möller Müller Mueller Muller Nägele Nørgaard Oehler Ölschläger Otto Paßmann
    Pfeiffer Pröll Quast Rößler Roth Rüdiger Sänger Schäfer Schmidt Schmitt Schönfeld Schröder
    Schulze Schütz Seiß Stöhr Strauß Süß Thiel Tröger Uhlig Ünal Vogel Völker Voß Wagner Weiß
    Weisz Werner Wöhrle Wüst Zänker Ziegler Zöllner
""".split()

FIRST_NAMES = """
    Anke Ansgar Änne Björn Bärbel Claire Dörte Edda Emre Fabian Gisèle Götz Günter Hannelore
    Hans-Jörg Ines Jörg Jürgen Käthe Knut Lars Lieselotte Ludwig Märit Niels Oda Ömer Petra Rüdiger
    René Sören Theo Tjark Ulf Ünsal Ute Veit Wiebke Xaver Zoë
""".split()

BUSINESSES = [
    'Gasthof "Zum goldenen Löwen"', "Bäckerei {}", "Autohaus {} & Söhne", "{} GmbH",
    "Gebr. {} OHG", "Elektro-{}", 'Café "{}"', "Maßschneiderei {}", "Tischlerei {}; Inh. A. {}",
    "Weingut {}", "Fußpflege {}", "Müllerei & Mühlenbau {}", "Ä-Z Handel {}", "Hör + Seh {}",
]

STREETS = """
    Ahornweg Am_Bühl Am_Mühlbach An_der_Kirche Bahnhofstraße Bergstraße Birkenallee Bürgerstraße
    Dorfstraße Eichenweg Fichtenstraße Gartenstraße Große_Gasse Grüner_Weg Hauptstraße Höhenweg
    Im_Gässle Im_Moos Kirchgasse Kleine_Brücke Königsallee Lange_Straße Lindenstraße Löwengasse
    Markt Mühlweg Obere_Schloßstraße Öhrstraße Platz_der_Freiheit Prälat-Weiß-Straße Ringstraße
    Rosenweg Sägmühlweg Schießgraben Schulstraße Straße_des_Friedens Süßer_Grund Talstraße
    Überm_Rain Waldweg Weißdornweg Zeppelinstraße Zum_Äpfelgarten
""".split()

TOWNS = [
    ("01067", "Dresden"), ("04109", "Leipzig"), ("06108", "Halle (Saale)"), ("07743", "Jena"),
    ("10115", "Berlin"), ("14467", "Potsdam"), ("18055", "Rostock"), ("20095", "Hamburg"),
    ("23552", "Lübeck"), ("24103", "Kiel"), ("26122", "Oldenburg"), ("28195", "Bremen"),
    ("30159", "Hannover"), ("33602", "Bielefeld"), ("37073", "Göttingen"),
    ("38100", "Braunschweig"),
    ("40213", "Düsseldorf"), ("48143", "Münster"), ("50667", "Köln"), ("55116", "Mainz"),
    ("60311", "Frankfurt am Main"), ("66111", "Saarbrücken"), ("67059", "Ludwigshafen"),
    ("70173", "Stuttgart"), ("72070", "Tübingen"), ("73728", "Eßlingen"), ("78462", "Konstanz"),
    ("79098", "Freiburg i. Br."), ("80331", "München"), ("84028", "Landshut"), ("87435", "Kempten"),
    ("89073", "Ulm"), ("90402", "Nürnberg"), ("91054", "Erlangen"), ("93047", "Regensburg"),
    ("95444", "Bayreuth"), ("97070", "Würzburg"), ("97753", "Karlstadt"), ("99084", "Erfurt"),
]

REMARKS = [
    "Stammkunde seit {year}", "zahlt per Lastschrift", "liefert nur bis 17 Uhr an; Hof hinten",
    'nennt sich selbst "der Alte"', "Rabatt 3 % – jährlich prüfen", "Öffnungszeiten: Mo–Fr; Sa nie",
    "Rückruf erbeten", "Ansprechpartner:\nFrau {family}\nDurchwahl {extension}",
    'Schild "Bitte läuten!" beachten', "Schlüssel liegt beim Nachbarn; Haus-Nr. {extension}",
    "Mahnung am 1.{month}. verschickt", "Größe XL, Farbe weiß", "spricht nur Französisch (René)",
    "Kredit bis 5.000 € vereinbart", "Lieferung:\n1. Stock\n\"Hinterhaus\"",
]


class Dice:
    """Draws from lists; only random(), whose numbers Python promises to keep, stands behind it."""

    def __init__(self, seed):
        self._random = random.Random(seed)

    def below(self, count):
        return int(self._random.random() * count)

    def one_of(self, items):
        return items[self.below(len(items))]

    def happens(self, percent):
        return self.below(100) < percent


def name(dice):
    family = dice.one_of(FAMILY_NAMES)
    if dice.happens(25):
        return dice.one_of(BUSINESSES).replace("{}", family)
    return f"{family}, {dice.one_of(FIRST_NAMES)}"


def street(dice):
    if dice.happens(4):
        return ""
    return f"{dice.one_of(STREETS).replace('_', ' ')} {1 + dice.below(140)}"


def remark(dice):
    if dice.happens(45):
        return ""
    return dice.one_of(REMARKS).format(
        year=1970 + dice.below(30), month=1 + dice.below(12), extension=10 + dice.below(90),
        family=dice.one_of(FAMILY_NAMES))


def customer(dice, number):
    code, town = dice.one_of(TOWNS)
    if dice.happens(3):
        code = ""
    return [number, name(dice), street(dice), code, town, remark(dice)]


def line(cells):
    out = io.StringIO()
    csv.writer(out, delimiter=";", lineterminator="\n").writerow(cells)
    return out.getvalue().encode("utf-8")


# Behind which customer a row stands that no program should swallow, and the row.
BROKEN_ROWS = {
    57: "2o057;Schmidt, Petra;Markt 3;04109;Leipzig;Buchstabe in der Nummer\n",
    161: "4294967296;Schmidt, Petra;Markt 3;04109;Leipzig;Nummer zu groß\n",
    248: "20248,5;Schmidt, Petra;Markt 3;04109;Leipzig;Nummer mit Nachkommastelle\n",
    333: "20333;Schmidt, Petra;Markt 3;04109\n",
    420: "20420;Schmidt, Petra;Markt 3;04109;Leipzig;Hof; Tor links\n",
    512: '20512;Gasthof "Zur Post";Markt 3;04109;Leipzig;Anführungszeichen ohne Maskierung\n',
    604: '20604;"Schmidt" GmbH;Markt 3;04109;Leipzig;Text hinter dem Anführungszeichen\n',
    777: "20777;Łukasz, Petra;Markt 3;04109;Leipzig;Zeichen außerhalb von Codepage 1252\n",
    850: b"20850;M\xfcller, Petra;Markt 3;04109;Leipzig;Codepage 1252 in einer UTF-8-Datei\n",
    1000: '21000;Schmidt, Petra;Markt 3;04109;Leipzig;"Hier bricht die Datei a',
}


def main():
    dice = Dice(17)
    out = sys.stdout.buffer
    out.write(line(COLUMNS))
    customers, broken_rows = CUSTOMERS, BROKEN_ROWS
    if len(sys.argv) > 1:
        customers, broken_rows = int(sys.argv[1]), {}
    for count in range(1, customers + 1):
        out.write(line(customer(dice, FIRST_NUMBER + count - 1)))
        broken = broken_rows.get(count, b"")
        out.write(broken.encode("utf-8") if isinstance(broken, str) else broken)


if __name__ == "__main__":
    main()
