#!/usr/bin/env bash
# Generates the classes of the SAML 2.0 assertion, protocol and metadata schemas
# (with XML Signature and XML Encryption) from the Debian packages opensaml-schemas
# and xmltooling-schemas, compiles them with warnings as errors, and sends the
# documents of tests/saml through them: each is read and written back, the output
# must validate against the schema (xmllint) and hold the same infoset as the input.
# Installs the two packages when they are missing and apt-get may be used.
# Usage: scripts/saml-roundtrip.sh   (expects ./scripts/build.sh release to have run)
set -euo pipefail
cd "$(dirname "$0")/.."

saml=/usr/share/xml/opensaml
tooling=/usr/share/xml/xmltooling
if [ ! -f "$saml/saml-schema-assertion-2.0.xsd" ] || [ ! -f "$tooling/xmldsig-core-schema.xsd" ]; then
  if apt-cache policy opensaml-schemas xmltooling-schemas 2>/dev/null | grep -q Candidate && [ "$(id -u)" = 0 ]; then
    DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends opensaml-schemas xmltooling-schemas >/dev/null
  else
    echo "saml-roundtrip: opensaml-schemas and xmltooling-schemas are not installed; skipped"
    exit 0
  fi
fi

build="$PWD/build"
out="$build/saml"
rm -rf "$out"
mkdir -p "$out/gen/saml"
gen="$build/tools/orvex-gen/orvex-gen"
[ -x "$gen" ] || cmake --build "$build" --target orvex-gen >/dev/null
[ -f "$build/liborvexxml_internal.a" ] || cmake --build "$build" --target orvexxml_internal >/dev/null

"$gen" -I "$tooling" -I "$saml" --namespace OrvexSaml --include-prefix saml -o "$out/gen/saml" \
  "$tooling/xmldsig-core-schema.xsd=XmlDsig" "$tooling/xenc-schema.xsd=XmlEnc" \
  "$saml/saml-schema-assertion-2.0.xsd=SamlAssertion" "$saml/saml-schema-protocol-2.0.xsd=SamlProtocol" \
  "$saml/saml-schema-metadata-2.0.xsd=SamlMetadata"
echo "generated: $(cat "$out"/gen/saml/*.h "$out"/gen/saml/*.cpp | wc -l) lines in $(ls "$out"/gen/saml | wc -l) files"

# shellcheck disable=SC2046
g++ -std=c++17 -O1 -Wall -Wextra -Werror -I. -I"$build/generated" -I"$out/gen" -o "$out/saml-roundtrip" \
  tests/saml/SamlRoundTrip.cpp "$out"/gen/saml/*.cpp "$build/liborvexxml_internal.a" \
  $(pkg-config --libs expat zlib libpcre2-8)

# The schemas name the W3C schemas by their web addresses; a catalog keeps xmllint offline.
cat > "$out/catalog.xml" <<CATALOG
<?xml version="1.0"?>
<catalog xmlns="urn:oasis:names:tc:entity:xmlns:xml:catalog">
  <system systemId="http://www.w3.org/TR/2002/REC-xmldsig-core-20020212/xmldsig-core-schema.xsd" uri="file://$tooling/xmldsig-core-schema.xsd"/>
  <system systemId="http://www.w3.org/TR/2002/REC-xmlenc-core-20021210/xenc-schema.xsd" uri="file://$tooling/xenc-schema.xsd"/>
  <system systemId="http://www.w3.org/2001/xml.xsd" uri="file://$tooling/xml.xsd"/>
</catalog>
CATALOG
export XML_CATALOG_FILES="$out/catalog.xml"

status=0
for pair in assertion:assertion authn-request:protocol response:protocol entity-descriptor:metadata; do
  doc="${pair%%:*}"
  schema="$saml/saml-schema-${pair#*:}-2.0.xsd"
  written="$out/$doc.xml"
  if ! "$out/saml-roundtrip" "tests/saml/$doc.xml" "$written"; then
    echo "$doc: FAILED to read and write"; status=1; continue
  fi
  if ! xmllint --noout --nonet --schema "$schema" "$written" 2>"$out/$doc.xmllint"; then
    echo "$doc: written document is INVALID"; cat "$out/$doc.xmllint"; status=1; continue
  fi
  if ! python3 tests/saml/same_infoset.py "tests/saml/$doc.xml" "$written"; then
    echo "$doc: written document holds OTHER information"; status=1; continue
  fi
  echo "$doc: read, written, valid, same infoset"
done
exit $status
