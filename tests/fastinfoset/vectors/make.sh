#!/usr/bin/env bash
# Rebuilds the binary test documents of this folder from XML files that Debian
# packages install, with the Java Fast Infoset library as the independent encoder:
#   NAME.xml                 the original (or, for the large MIME database, its first entries)
#   NAME.finf                the library's default encoding
#   NAME.utf16.finf          strings in UTF-16
#   NAME.alphabets.finf      numeric and date-time values in the built-in restricted alphabets
#   NAME.novalueindex.finf   no attribute value or text sent as an index
#   NAME.rawchunks.finf      text in the chunks the XML parser delivered, unmerged (kept
#                            only where it differs from NAME.finf)
# Each encoding is checked to decode to the same events as its original.
# Usage: make.sh [path of fi-oracle]
set -euo pipefail
cd "$(dirname "$0")"
oracle="${1:-$(cd ../../../.. && pwd)/shared/tools/fi-oracle/fi-oracle}"
[ -x "$oracle" ] || { echo "make.sh: fi-oracle not found at $oracle" >&2; exit 1; }

# name  source  (what each one brings)
sources=(
  "fontconfig-unhint   /usr/share/fontconfig/conf.avail/25-unhint-nonlatin.conf"       # DOCTYPE SYSTEM, comments before the root
  "svg-dependencies    /usr/share/doc/postgresql-common/dependencies.svg"             # DOCTYPE PUBLIC, two namespaces, numbers
  "polkit-catalog      /usr/share/xml/polkit-1/catalog.xml"                           # catalog namespace, tiny
  "gschema-wm          /usr/share/glib-2.0/schemas/org.gnome.desktop.wm.preferences.gschema.xml"  # CDATA sections
  "iso-4217            /usr/share/xml/iso-codes/iso_4217.xml"                         # hundreds of short values: two-octet indexes
  "maven-pom           /usr/share/maven-repo/org/apache/commons/commons-parent/56/commons-parent-56.pom"  # many element names
  "mime-head           /usr/share/mime/packages/freedesktop.org.xml"                  # xml:lang, non-ASCII text (first entries only)
)

for line in "${sources[@]}"; do
  read -r name source <<<"$line"
  if [ "$name" = mime-head ]; then
    # The whole database is 2.4 MB; its first 8 types keep every feature at 1/200 of the size.
    python3 - "$source" "$name.xml" <<'PY'
import sys
text = open(sys.argv[1], encoding="utf-8").read()
end = 0
for _ in range(8):
    end = text.index("</mime-type>", end) + len("</mime-type>")
open(sys.argv[2], "w", encoding="utf-8").write(text[:end] + "\n</mime-info>\n")
PY
  else
    cp "$source" "$name.xml"
  fi
  "$oracle" xml2fi "$name.xml" "$name.finf"
  "$oracle" xml2fi "$name.xml" "$name.utf16.finf" --utf16
  "$oracle" xml2fi "$name.xml" "$name.alphabets.finf" --alphabets
  "$oracle" xml2fi "$name.xml" "$name.novalueindex.finf" --no-value-index
  "$oracle" xml2fi "$name.xml" "$name.rawchunks.finf" --raw-chunks
  "$oracle" dump "$name.xml" >"/tmp/make-vectors.$$.want" 2>/dev/null
  for finf in "$name".*finf; do
    "$oracle" dump "$finf" >"/tmp/make-vectors.$$.got"
    cmp -s "/tmp/make-vectors.$$.want" "/tmp/make-vectors.$$.got" || { echo "make.sh: $finf decodes differently" >&2; exit 1; }
  done
  # Unmerged chunks only differ where the parser split the text; an identical copy adds nothing.
  if cmp -s "$name.finf" "$name.rawchunks.finf"; then rm "$name.rawchunks.finf"; fi
done
rm -f "/tmp/make-vectors.$$.want" "/tmp/make-vectors.$$.got"
du -ch ./*.xml ./*.finf | tail -1
