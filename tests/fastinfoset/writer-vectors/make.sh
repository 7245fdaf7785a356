#!/usr/bin/env bash
# Makes the expected Fast Infoset bytes of every NAME.xml here with the Java
# Fast Infoset library (fi-oracle), with the table policy of our writer: only
# elements, attributes, namespace attributes and UTF-8 chunks, and values indexed
# when shorter than 6 characters. large.xml is generated first.
set -euo pipefail
cd "$(dirname "$0")"
oracle="${FI_ORACLE:-$(cd ../../../.. && pwd)/shared/tools/fi-oracle/fi-oracle}"
python3 - <<'PY'
# Names and values of every length form: more than 64 names and values for the
# two-octet indexes, names over 64 and 320 octets, values over 8 and 264 octets,
# text over 2 and 258 octets.
parts = ['<r>']
for i in range(300):
    parts.append('<e%d a%d="v%d">t%d</e%d>' % (i, i % 70, i, i, i))
for i in range(300):
    parts.append('<e%d a%d="v%d">t%d</e%d>' % (i, i % 70, i, i, i))
long1, long2 = 'n' * 70, 'm' * 400
parts.append('<%s %s="%s">%s</%s>' % (long1, long2, 'x' * 9, 'y' * 3, long1))
parts.append('<%s %s="%s">%s</%s>' % (long2, long1, 'x' * 300, 'y' * 300, long2))
parts.append('</r>')
open('large.xml', 'w').write(''.join(parts))
PY
for xml in *.xml; do
  "$oracle" xml2fi "$xml" "${xml%.xml}.finf" --minimal --table-limit 6
done
