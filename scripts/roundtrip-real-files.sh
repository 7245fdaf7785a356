#!/usr/bin/env bash
# Reads every XML file of a few folders that Debian packages fill into an untyped
# CElement (no schema), writes it back, and has Python's XML parser judge that the
# result is the same tree as the original: names with namespaces, attributes and
# the text of each element (the library keeps an element's text as one string,
# written after its children, so text is compared joined per element).
# Usage: scripts/roundtrip-real-files.sh [DEMO]   (default build/tools/orvex-demo)
set -euo pipefail
cd "$(dirname "$0")/.."
demo="${1:-build/tools/orvex-demo}"
command -v python3 >/dev/null 2>&1 || { echo "python3 not found: skipped"; exit 0; }
python3 - "$demo" <<'PY'
import glob, subprocess, sys, xml.etree.ElementTree as ET
demo = sys.argv[1]
folders = ["/usr/share/mime/packages", "/etc/fonts", "/usr/share/fontconfig/conf.avail",
           "/usr/share/xml/iso-codes", "/usr/share/glib-2.0/schemas", "/usr/share/polkit-1/actions"]
def canon(e):
    text = (e.text or "") + "".join((c.tail or "") for c in e)
    return (e.tag, sorted(e.attrib.items()), text, [canon(c) for c in e])
checked = failed = skipped = 0
for folder in folders:
    for path in sorted(glob.glob(folder + "/*.xml") + glob.glob(folder + "/*.conf")):
        try:
            want = canon(ET.parse(path).getroot())
        except ET.ParseError:
            skipped += 1
            continue
        run = subprocess.run([demo, "echo-compact", path], capture_output=True)
        if run.returncode != 0:
            # Files with a DTD the parser will not read are refused by both sides alike.
            skipped += 1
            continue
        try:
            got = canon(ET.fromstring(run.stdout))
        except ET.ParseError as e:
            print("not well-formed output:", path, e); failed += 1; continue
        if got != want:
            print("different tree:", path); failed += 1
        checked += 1
print(f"real files: {checked} checked, {failed} different, {skipped} skipped")
sys.exit(1 if failed else 0)
PY
