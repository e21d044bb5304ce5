#!/usr/bin/env bash
# Shows the library's main job on the sample data: installs what is missing, builds zelconv and four
# example programs, converts the customers of examples/data/kunden.csv into every form, computes
# what they bought, and when they get it, from the orders of auftraege.csv, changes one of these
# orders in a dialog, and writes the invoices into a database. What it makes lies in a temporary folder and is gone afterwards; the build
# stays in build/demo.
set -euo pipefail
cd "$(dirname "$0")"

step="preparation"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'echo "demo.sh: FAILED: $step" >&2' ERR

begin() {
  step=$1
  printf '\n=== %s ===\n' "$step"
}

build() {
  cmake --preset release -B build/demo -DZELDT_BUILD_TESTS=OFF &&
    cmake --build build/demo --target zelconv example_umsatz example_termine example_auftragsmaske \
      example_rechnungslauf
}

# Shows a call as it could be typed, then makes it.
run() {
  local word
  printf '$ %s' "${1##*/}"
  for word in "${@:2}"; do
    case $word in
    *[\ \;\(\)]*) printf " '%s'" "$word" ;;
    *) printf ' %s' "${word#"$work/"}" ;;
    esac
  done
  printf '\n'
  "$@"
}
convert() {
  run build/demo/bin/zelconv "$@"
}

# Converts a sample; some of its rows are rejected, which is status 1 and expected.
customers="Nr:long,Name:string,Strasse:string,PLZ:string,Ort:string,Bemerkung:string"
orders="Nr:long,Kunde:long,Artikel:string,Menge:short,Preis:decimal(2),Rabatt:decimal,Gewicht:double"
orders+=",Auftragsdatum:datetime,Faellig:date,Arbeitszeit:time,Express:bool,Status:char"
convert_sample() { # COLUMNS OPTION...
  local status=0
  convert --columns "$1" --from csv "${@:2}" || status=$?
  [ "$status" -eq 1 ]
}

sample=examples/data/kunden.csv
sample_orders=examples/data/auftraege.csv

begin "packages"
cmake/install-packages.sh build tools recordsets

begin "build"
if ! build >"$work/build.log" 2>&1; then
  tail -n 40 "$work/build.log"
  false
fi
echo "built in build/demo/bin: zelconv, umsatz, termine, auftragsmaske, rechnungslauf"

begin "customers in house order, as a display table"
convert_sample "$customers" --to display --sort Name --rejects "$work/rejects.txt" "$sample" "$work/table.txt"
head -n 12 "$work/table.txt"
echo "..."
grep -m 1 -B 2 -A 2 -E '^ *[0-9]+  Ä' "$work/table.txt"
echo "..."
tail -n 5 "$work/table.txt"
echo "Accented letters stand right behind their base letter: all of Ä between A and B."

begin "the same rows as SQL"
convert_sample "$customers" --to sql --table Kunden "$sample" "$work/kunden.sql" 2>/dev/null
head -n 5 "$work/kunden.sql"
echo "... $(grep -c '^INSERT INTO' "$work/kunden.sql") statements"

begin "the same rows in Extern form"
convert_sample "$customers" --to extern "$sample" "$work/kunden.ext" 2>/dev/null
head -n 5 "$work/kunden.ext"
echo "..."
tail -n 1 "$work/kunden.ext"

begin "into an archive and back"
convert_sample "$customers" --to csv "$sample" "$work/before.csv" 2>/dev/null
convert --columns "$customers" --from csv --to archive "$work/before.csv" "$work/kunden.zca"
convert --from archive --to csv "$work/kunden.zca" "$work/after.csv"
cmp "$work/before.csv" "$work/after.csv"
convert --from archive --to extern "$work/kunden.zca" "$work/after.ext"
cmp "$work/kunden.ext" "$work/after.ext"
convert --from extern --to archive "$work/kunden.ext" "$work/again.zca"
cmp "$work/kunden.zca" "$work/again.zca"
echo "No difference: CSV, Extern and archive of $(stat -c %s "$work/kunden.zca") bytes."

begin "what was rejected, and why"
cat "$work/rejects.txt"
echo

begin "orders: numbers, dates, times, yes and no as SQL"
convert_sample "$orders" --to sql --table Auftraege --rejects "$work/rejects.txt" \
  "$sample_orders" "$work/auftraege.sql"
head -n 3 "$work/auftraege.sql"
echo "... $(grep -c '^INSERT INTO' "$work/auftraege.sql") statements"
echo "Rejected, by column and first cause:"
grep '^#zelconv' "$work/rejects.txt" | cut -f 3,7 | sort | uniq -c

begin "sales by customer, computed with decimals"
run build/demo/bin/umsatz "$sample" "$sample_orders" >"$work/report.txt"
head -n 24 "$work/report.txt"
echo "..."

begin "delivery a month later, from date-times, dates and times"
run build/demo/bin/termine "$sample_orders" >"$work/report.txt"
sed -n 1,9p "$work/report.txt"
echo "..."
grep '^0[12]\.202[34]' "$work/report.txt"
echo "..."
sed -n '/^Alle/,/^Abgewiesene/p' "$work/report.txt"
grep -m 8 -E ', (Auftragsdatum|Faellig|Arbeitszeit|Express|Status): ' "$work/report.txt"
echo "..."

begin "one order in a dialog, typed into without a screen"
printf '%s\n' 'Menge=1.200' 'Faellig=31.02.2022' '[OK]' 'Faellig=28.02.2022' 'Teillieferung=Ja' \
  >"$work/eingaben.txt"
run build/demo/bin/auftragsmaske --tippe "$work/eingaben.txt" "$sample_orders" 100004 \
  --sql "$work/auftrag.sql" --archiv "$work/auftrag.arc" | sed "s|$work/||g"
cat "$work/auftrag.sql"
run build/demo/bin/auftragsmaske --lies "$work/auftrag.arc"

begin "invoices from a database, in one transaction; a second run changes nothing"
run build/demo/bin/rechnungslauf --data examples/data --out "$work/rechnungen" >"$work/report.txt"
head -n 8 "$work/report.txt"
echo "..."
sed -n '/^ *Steuersatz 19/,/^Gewicht/p' "$work/report.txt"
run build/demo/bin/rechnungslauf --data examples/data --out "$work/rechnungen" >"$work/again.txt"
cmp "$work/report.txt" "$work/again.txt"
run build/demo/bin/rechnungslauf --show "$work/rechnungen/rechnung-000002.arc"

echo
echo "demo.sh: done"
