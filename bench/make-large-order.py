#!/usr/bin/env python3
"""Writes a large purchase order as formatted XML text: the order the benchmarks
build in memory (MakeLargeOrder), as a file for programs that read files.
Usage: make-large-order.py ITEMS OUT   (130000 items make about 20 MB)"""
import sys

PRODUCTS = ["Lawnmower", "Baby Monitor", "Garden hose, 25 m", "Rake &amp; shovel", "Sprinkler &lt;oscillating&gt;"]


def address(tag, name, street, city, state, zip_code):
    return (f'\t<{tag} country="US">\n\t\t<name>{name}</name>\n\t\t<street>{street}</street>\n'
            f'\t\t<city>{city}</city>\n\t\t<state>{state}</state>\n\t\t<zip>{zip_code}</zip>\n\t</{tag}>\n')


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    count = int(sys.argv[1])
    with open(sys.argv[2], "w", encoding="utf-8", newline="\n") as out:
        out.write('<?xml version="1.0" encoding="UTF-8"?>\n<purchaseOrder orderDate="1999-10-20">\n')
        out.write(address("shipTo", "Alice Smith", "123 Maple Street", "Mill Valley", "CA", "90952"))
        out.write(address("billTo", "Robert Smith", "8 Oak Avenue", "Old Town", "PA", "95819"))
        out.write("\t<comment>Hurry, my lawn is going wild!</comment>\n\t<items>\n")
        for i in range(count):
            part = f"{i % 1000:03d}-{chr(65 + i // 1000 % 26)}{chr(65 + i // 26000 % 26)}"
            item = [f'\t\t<item partNum="{part}">\n',
                    f"\t\t\t<productName>{PRODUCTS[i % 5]}</productName>\n",
                    f"\t\t\t<quantity>{1 + i % 99}</quantity>\n",
                    f"\t\t\t<USPrice>{i % 500}.{i % 100:02d}</USPrice>\n"]
            if i % 3 == 0:
                item.append("\t\t\t<comment>Confirm this is electric</comment>\n")
            if i % 5 == 0:
                item.append(f"\t\t\t<shipDate>1999-{1 + i % 12:02d}-21</shipDate>\n")
            item.append("\t\t</item>\n")
            out.write("".join(item))
        out.write("\t</items>\n</purchaseOrder>\n")


if __name__ == "__main__":
    main()
