#!/usr/bin/env python3
"""Tells whether two XML documents hold the same information: element and attribute
names with their namespaces, attribute values, and text (whitespace-only text between
elements is layout). QName values of xsi:type are compared by namespace and local name."""
import sys
import xml.etree.ElementTree as ET

XSI_TYPE = "{http://www.w3.org/2001/XMLSchema-instance}type"


def load(path):
    """The tree, with each element's in-scope prefixes kept for QName values."""
    scopes = []
    root = None
    stack = [{}]
    pending = {}
    for event, item in ET.iterparse(path, events=("start-ns", "start", "end")):
        if event == "start-ns":
            pending[item[0]] = item[1]
        elif event == "start":
            scope = dict(stack[-1])
            scope.update(pending)
            pending = {}
            stack.append(scope)
            item.set("{urn:same-infoset}scope", repr(sorted(scope.items())))
            if root is None:
                root = item
        else:
            stack.pop()
    return root


def resolve(value, element):
    scope = dict(eval(element.get("{urn:same-infoset}scope")))
    prefix, _, local = value.rpartition(":")
    return "{%s}%s" % (scope.get(prefix, ""), local)


def describe(element, path):
    attributes = {k: v for k, v in element.attrib.items() if k != "{urn:same-infoset}scope"}
    if XSI_TYPE in attributes:
        attributes[XSI_TYPE] = resolve(attributes[XSI_TYPE], element)
    text = (element.text or "").strip()
    return element.tag, attributes, text


def compare(a, b, path):
    da, db = describe(a, path), describe(b, path)
    if da != db:
        print("%s: %r != %r" % (path, da, db))
        return False
    ca, cb = list(a), list(b)
    if len(ca) != len(cb):
        print("%s: %d children != %d" % (path, len(ca), len(cb)))
        return False
    return all(compare(x, y, "%s/%s" % (path, x.tag)) for x, y in zip(ca, cb))


sys.exit(0 if compare(load(sys.argv[1]), load(sys.argv[2]), "") else 1)
