#!/usr/bin/env python3
"""The orvex command-line tool run as a user runs it: installed into a scratch prefix
(when --install-from names a build tree), started as a subprocess over real files,
its output judged by gzip -d, Python's XML parser and, where it is installed, the
Java Fast Infoset reference (fi-oracle); and its exit status for each kind of failure.

Usage: orvex_cli_test.py --binary BUILT_ORVEX --source-dir SRC --work-dir DIR
                         [--install-from BUILD_DIR] [--fi-oracle PATH] [unittest args]
"""
import argparse
import glob
import gzip
import os
import pty
import re
import shutil
import subprocess
import sys
import unittest
import zlib
import xml.etree.ElementTree as ET
import zlib

ARGS = None
ORVEX = None
WORK = None
ORACLE = None

# Sizes above this are left out of the real-file runs to keep the test short.
MAX_REAL_FILE = 3 << 20


def run(*arguments, stdin=b"", stdout=subprocess.PIPE):
    return subprocess.run([ORVEX, *arguments], input=stdin, stdout=stdout, stderr=subprocess.PIPE, timeout=300)


def canon(element, indented=False):
    """Names with namespaces, attributes, and the text of each element joined, as the
    untyped element keeps it. Text of white space alone in an element with children
    is layout and goes; after indenting, text next to children is compared stripped."""
    text = (element.text or "") + "".join(child.tail or "" for child in element)
    if len(element):
        text = text.strip(" \t\r\n") if indented or not text.strip(" \t\r\n") else text
    return (element.tag, sorted(element.attrib.items()), text, [canon(c, indented) for c in element])


def real_files():
    """Example documents and XML files Debian packages install, small enough to run."""
    paths = sorted(glob.glob(os.path.join(ARGS.source_dir, "examples", "*", "*.xml")))
    for folder in ["/usr/share/mime/packages", "/usr/share/xml"]:
        paths += sorted(glob.glob(folder + "/**/*.xml", recursive=True))
    return [p for p in paths if os.path.isfile(p) and os.path.getsize(p) <= MAX_REAL_FILE]


def python_tree(path):
    """The document element as Python reads it, or None when Python refuses the file."""
    try:
        return ET.parse(path).getroot()
    except ET.ParseError:
        return None


def decompress(data, compression):
    if compression == "gzip":
        # The command-line gzip must take it, not only Python's module.
        done = subprocess.run(["gzip", "-d", "-c"], input=data, capture_output=True, check=True)
        return done.stdout
    if compression == "zlib":
        return zlib.decompress(data)
    return data


# Output forms of convert: options, whether the result is Fast Infoset, compression.
FORMS = [
    ([], False, None),
    (["--compact"], False, None),
    (["--gzip"], False, "gzip"),
    (["--zlib", "--compact"], False, "zlib"),
    (["--utf16"], False, None),
    (["--utf16", "--gzip"], False, "gzip"),
    (["--eol", "crlf"], False, None),
    (["--to", "fi"], True, None),
    (["--to", "fi", "--gzip"], True, "gzip"),
    (["--to", "fi", "--zlib"], True, "zlib"),
    (["--to", "fi", "--declaration"], True, None),
]


def out_path(name):
    return os.path.join(WORK, name)


class RealFileRoundTrips(unittest.TestCase):
    def test_every_form_keeps_the_tree(self):
        checked = refused = 0
        for path in real_files():
            want = python_tree(path)
            first = run("convert", path, out_path("first.xml"), "--compact")
            if want is None:
                # Files Python refuses (one is empty, one has a bare &) orvex refuses too.
                self.assertEqual(first.returncode, 1, path)
                self.assertIn(b"orvex: " + path.encode(), first.stderr)
                refused += 1
                continue
            self.assertEqual(first.returncode, 0, (path, first.stderr))
            for options, fast_infoset, compression in FORMS:
                with self.subTest(path=path, options=options):
                    target = out_path("form.out")
                    done = run("convert", path, target, *options)
                    self.assertEqual(done.returncode, 0, done.stderr)
                    self.assertEqual(done.stderr, b"")
                    with open(target, "rb") as f:
                        data = decompress(f.read(), compression)
                    indented = "--compact" not in options
                    # Back to XML through orvex: the written file itself is read, its
                    # form recognised from its bytes.
                    back = run("convert", target, "-", "--compact")
                    self.assertEqual(back.returncode, 0, back.stderr)
                    self.assertEqual(canon(ET.fromstring(back.stdout), indented), canon(want, indented))
                    if fast_infoset:
                        declared = data.startswith(b"<?xml encoding='finf'?>")
                        self.assertEqual(declared, "--declaration" in options)
                        self.assertTrue(data[23 if declared else 0:].startswith(b"\xe0\x00\x00\x01"))
                        continue
                    if "--utf16" in options:
                        self.assertTrue(data.startswith(b"\xff\xfe"))
                        self.assertTrue(data[2:].decode("utf-16-le").startswith('<?xml version="1.0" encoding="UTF-16"?>'))
                    elif "--eol" in options:
                        self.assertNotIn(b"\n", data.replace(b"\r\n", b""))
                    self.assertEqual(canon(ET.fromstring(data), indented), canon(want, indented))
            checked += 1
        self.assertGreaterEqual(checked, 5)
        print(f"\nreal files: {checked} converted in {len(FORMS)} forms, {refused} refused alike",
              file=sys.stderr)

    def test_standard_streams_give_the_file_bytes(self):
        path = os.path.join(ARGS.source_dir, "examples", "library", "library.xml")
        for options in [[], ["--to", "fi", "--gzip"]]:
            with self.subTest(options=options):
                self.assertEqual(run("convert", path, out_path("file.out"), *options).returncode, 0)
                with open(path, "rb") as f:
                    piped = run("convert", "-", "-", *options, stdin=f.read())
                self.assertEqual(piped.returncode, 0, piped.stderr)
                with open(out_path("file.out"), "rb") as f:
                    self.assertEqual(piped.stdout, f.read())

    def test_a_document_too_small_to_gain_is_still_compressed(self):
        for option, inflate in [("--gzip", gzip.decompress), ("--zlib", zlib.decompress)]:
            for form in [["--compact"], ["--to", "fi"]]:
                with self.subTest(option=option, form=form):
                    done = run("convert", "-", "-", option, "--no-declaration", *form, stdin=b"<a/>")
                    self.assertEqual(done.returncode, 0, done.stderr)
                    plain = run("convert", "-", "-", "--no-declaration", *form, stdin=b"<a/>")
                    self.assertGreater(len(done.stdout), len(plain.stdout))
                    self.assertEqual(inflate(done.stdout), plain.stdout)

    def test_the_deepest_tree_taken_goes_through_every_form(self):
        deep = b"<a>" * 1000 + b"x" + b"</a>" * 1000
        for options, _, _ in FORMS:
            with self.subTest(options=options):
                there = run("convert", "-", out_path("deep.out"), *options, stdin=deep)
                self.assertEqual(there.returncode, 0, there.stderr)
                back = run("convert", out_path("deep.out"), "-", "--compact", "--no-declaration")
                self.assertEqual(back.stdout, deep)

    def test_a_file_converted_onto_itself(self):
        path = out_path("in-place.xml")
        shutil.copy(os.path.join(ARGS.source_dir, "examples", "library", "library.xml"), path)
        want = canon(python_tree(path))
        self.assertEqual(run("convert", path, path, "--to", "fi", "--gzip").returncode, 0)
        self.assertEqual(run("convert", path, path, "--compact").returncode, 0)
        self.assertEqual(canon(python_tree(path)), want)

    def test_declaration_can_be_left_out(self):
        path = os.path.join(ARGS.source_dir, "examples", "purchase-order", "po.xml")
        done = run("convert", path, "-", "--no-declaration", "--compact")
        self.assertEqual(done.returncode, 0)
        self.assertTrue(done.stdout.startswith(b"<purchaseOrder "), done.stdout[:40])

    def test_layout_is_kept_when_asked(self):
        done = run("convert", "-", "-", "--compact", "--keep-blank", stdin=b"<r>\n  <a>x</a>\n</r>")
        self.assertEqual(done.stdout.split(b"?>", 1)[1], b"\n<r><a>x</a>\n  \n</r>")
        done = run("convert", "-", "-", "--compact", stdin=b"<r>\n  <a>x</a>\n</r>")
        self.assertEqual(done.stdout.split(b"?>", 1)[1], b"\n<r><a>x</a></r>")


class FastInfosetReference(unittest.TestCase):
    """The Java Fast Infoset library reads what orvex writes, and orvex reads what it writes."""

    def setUp(self):
        if not ORACLE:
            self.skipTest("fi-oracle or java not found")

    def oracle(self, *arguments):
        done = subprocess.run([ORACLE, *arguments], capture_output=True, timeout=300)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def test_both_directions(self):
        paths = [p for p in real_files() if os.path.getsize(p) < (64 << 10) and python_tree(p) is not None][:6]
        for path in paths:
            with self.subTest(path=path):
                want = canon(python_tree(path))
                ours = out_path("ours.finf")
                self.assertEqual(run("convert", path, ours, "--to", "fi").returncode, 0)
                self.oracle("fi2xml", ours, out_path("java.xml"))
                self.assertEqual(canon(ET.parse(out_path("java.xml")).getroot()), want)
                theirs = out_path("java.finf")
                self.oracle("xml2fi", path, theirs)
                back = run("convert", theirs, "-", "--compact")
                self.assertEqual(back.returncode, 0, back.stderr)
                self.assertEqual(canon(ET.fromstring(back.stdout)), want)


class ShowAndStats(unittest.TestCase):
    def test_show_lists_every_element_in_document_order(self):
        for path in real_files()[:12]:
            root = python_tree(path)
            if root is None:
                continue
            with self.subTest(path=path):
                done = run("show", path)
                self.assertEqual(done.returncode, 0, done.stderr)
                lines = done.stdout.decode("utf-8").split("\n")
                tree = lines[lines.index("Tree ({namespace}name, @attribute, text):") + 1:]
                names = [l.strip() for l in tree if l.strip() and not l.strip().startswith(("@", "text: "))]
                self.assertEqual(names, [e.tag for e in root.iter()])

    def test_show_names_the_input_form(self):
        path = os.path.join(ARGS.source_dir, "examples", "data", "sample.xml")
        for options, form in [([], "XML text"), (["--to", "fi"], "Fast Infoset"), (["--gzip"], "gzip"),
                              (["--zlib"], "zlib"), (["--utf16"], "XML text in UTF-16")]:
            with self.subTest(options=options):
                self.assertEqual(run("convert", path, out_path("show.in"), *options).returncode, 0)
                done = run("show", out_path("show.in"))
                self.assertIn(f"\nForm: {form}, {os.path.getsize(out_path('show.in'))} bytes\n".encode(),
                              done.stdout)

    def test_stats_counts_and_sizes(self):
        path = os.path.join(ARGS.source_dir, "examples", "library", "library.xml")
        root = python_tree(path)
        done = run("stats", path)
        self.assertEqual(done.returncode, 0, done.stderr)
        # "label   value" lines; the sizes are indented below them.
        report = dict(re.split(r"\s{2,}", line, maxsplit=1) for line in done.stdout.decode().splitlines()
                      if not line.startswith(("  ", "size")))
        self.assertEqual(int(report["elements"]), len(list(root.iter())))
        self.assertEqual(int(report["attributes"].split()[0]), sum(len(e.attrib) for e in root.iter()))
        self.assertEqual(int(report["depth"]), self.depth(root))
        # Each size is what convert writes in that form.
        for name, options in [("XML", ["--compact"]), ("XML+gzip", ["--compact", "--gzip"]),
                              ("Fast Infoset", ["--to", "fi"]), ("Fast Infoset+gzip", ["--to", "fi", "--gzip"])]:
            with self.subTest(form=name):
                self.assertEqual(run("convert", path, out_path("size.out"), *options).returncode, 0)
                line = [l for l in done.stdout.decode().splitlines() if l.startswith("  " + name + " ")]
                self.assertEqual(len(line), 1, name)
                self.assertEqual(int(line[0][len(name) + 2:].split()[0]), os.path.getsize(out_path("size.out")))

    @staticmethod
    def depth(element):
        return 1 + max((ShowAndStats.depth(c) for c in element), default=0)


class Failures(unittest.TestCase):
    """Each kind of failure: its exit status, its message, and no file written."""

    def setUp(self):
        self.target = out_path("kept.out")
        with open(self.target, "wb") as f:
            f.write(b"old contents")

    def assertTargetUntouched(self):
        with open(self.target, "rb") as f:
            self.assertEqual(f.read(), b"old contents")
        self.assertEqual([n for n in os.listdir(WORK) if n.startswith("kept.out.~")], [])

    def test_bad_input_exits_with_1_and_leaves_the_output(self):
        bomb = gzip.compress(b"<r>" + b" " * (4 << 20) + b"</r>")
        fi = run("convert", "-", "-", "--to", "fi", stdin=b"<r><a x='1'>text</a><b/></r>").stdout
        cases = [
            ("not well-formed", [], b"<a><b>x</a>", rb"mismatched tag at line 1"),
            ("cut short", [], b"<a><b>x</b>", rb"line 1"),
            ("empty", [], b"", rb"XML Stream is empty!"),
            ("no element", [], b"<?xml version='1.0'?>", rb"."),
            ("binary noise", [], bytes(range(7, 200)), rb"."),
            ("broken gzip", [], gzip.compress(b"<r>hello</r>")[:-12] + b"\0" * 4, rb"."),
            ("inflates beyond the limit", ["--max-inflated", "1M"], bomb, rb"."),
            ("Fast Infoset cut short", [], fi[:-4], rb"."),
            ("nested too deep", [], b"<a>" * 1001 + b"</a>" * 1001, rb"nested deeper than 1000 levels"),
            ("nested far too deep", [], b"<a>" * 200000 + b"</a>" * 200000, rb"nested deeper than 1000 levels"),
        ]
        for name, options, data, message in cases:
            with self.subTest(name):
                done = run("convert", "-", self.target, *options, stdin=data)
                self.assertEqual(done.returncode, 1, done.stderr)
                self.assertRegex(done.stderr, rb"^orvex: standard input")
                self.assertRegex(done.stderr, message)
                self.assertTargetUntouched()

    def test_the_limit_can_be_lifted(self):
        bomb = gzip.compress(b"<r>" + b" " * (2 << 20) + b"</r>")
        self.assertEqual(run("convert", "-", "-", "--max-inflated", "1M", stdin=bomb).returncode, 1)
        self.assertEqual(run("convert", "-", "-", "--max-inflated", "0", stdin=bomb).returncode, 0)

    def test_message_names_the_file_and_the_place(self):
        bad = out_path("bad.xml")
        with open(bad, "wb") as f:
            f.write(b"<a>\n  <b>\n</a>\n")
        done = run("convert", bad, self.target)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr, f"orvex: {bad} (line 3, column 3): mismatched tag at line 3\n".encode())
        self.assertTargetUntouched()

    def test_files_that_cannot_be_read_or_written(self):
        good = os.path.join(ARGS.source_dir, "examples", "purchase-order", "po.xml")
        cases = [
            (["convert", out_path("missing.xml"), self.target], rb"Failed to open the file"),
            (["convert", WORK, self.target], rb"."),
            (["show", out_path("missing.xml")], rb"Failed to open the file"),
            (["stats", out_path("missing.xml")], rb"Failed to open the file"),
            (["convert", good, out_path("no/such/dir/out.xml")], rb"Failed to write data to the file"),
            (["convert", good, "-"], rb"standard output: Failed to write to the standard output"),
            (["show", good], rb"standard output: Failed to write to the standard output"),
            (["stats", good], rb"standard output: Failed to write to the standard output"),
        ]
        for arguments, message in cases:
            with self.subTest(arguments=arguments), open("/dev/full", "wb") as full:
                # Standard output is a full device: only a write there fails.
                done = run(*arguments, stdin=b"<a/>", stdout=full)
                self.assertEqual(done.returncode, 1, done.stderr)
                self.assertRegex(done.stderr, b"^orvex: .*" + message)
        self.assertTargetUntouched()

    def test_usage_errors_exit_with_2(self):
        good = os.path.join(ARGS.source_dir, "examples", "purchase-order", "po.xml")
        cases = [
            [],
            ["frobnicate"],
            ["convert"],
            ["convert", good],
            ["convert", good, self.target, "extra"],
            ["convert", "--to", "json", good, self.target],
            ["convert", "--to"],
            ["convert", "--gzip", "--zlib", good, self.target],
            ["convert", "--indent", "--compact", good, self.target],
            ["convert", "--to", "fi", "--utf16", good, self.target],
            ["convert", "--to", "fi", "--eol", "lf", good, self.target],
            ["convert", "--eol", "cr", good, self.target],
            ["convert", "--gzip", "--gzip", good, self.target],
            ["convert", "--gzip=yes", good, self.target],
            ["convert", "--declaration", "--no-declaration", good, self.target],
            ["convert", "--max-inflated", "lots", good, self.target],
            ["convert", "--frob", good, self.target],
            ["show"],
            ["show", good, good],
            ["stats", "--to", "fi", good],
            ["help", "convert", "show"],
        ]
        for arguments in cases:
            with self.subTest(arguments=arguments):
                done = run(*arguments)
                self.assertEqual(done.returncode, 2, done.stderr)
                self.assertRegex(done.stderr, rb"^orvex[a-z ]*: .+\nTry 'orvex ([a-z]+ )?--help'.\n$")
                self.assertEqual(done.stdout, b"")
        self.assertTargetUntouched()

    def test_help_for_each_command(self):
        for arguments, first in [(["--help"], b"usage: orvex COMMAND"), (["help"], b"usage: orvex COMMAND"),
                                 (["convert", "--help"], b"usage: orvex convert"),
                                 (["help", "convert"], b"usage: orvex convert"),
                                 (["show", "--help"], b"usage: orvex show"),
                                 (["stats", "--help"], b"usage: orvex stats")]:
            with self.subTest(arguments=arguments):
                done = run(*arguments)
                self.assertEqual(done.returncode, 0)
                self.assertTrue(done.stdout.startswith(first))
                self.assertRegex(done.stdout, rb"(?i)exit status")

    def test_binary_output_is_not_written_to_a_terminal(self):
        good = os.path.join(ARGS.source_dir, "examples", "purchase-order", "po.xml")
        status, _, err = run_with_terminal([ORVEX, "convert", good, "-", "--to", "fi"], stdout_terminal=True)
        self.assertEqual(status, 2)
        self.assertIn(b"will not write Fast Infoset to a terminal", err)


def run_with_terminal(command, stdout_terminal=False):
    """Runs command with standard error (or standard output) on a pseudo-terminal;
    gives the exit status, standard output and what reached the terminal."""
    master, slave = pty.openpty()
    with open(out_path("terminal.stdout"), "wb") as out:
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=slave if stdout_terminal else out,
                                   stderr=slave)
    os.close(slave)
    seen = b""
    while True:
        try:
            chunk = os.read(master, 65536)
        except OSError:
            break
        if not chunk:
            break
        seen += chunk
    os.close(master)
    status = process.wait(timeout=300)
    with open(out_path("terminal.stdout"), "rb") as f:
        return status, f.read(), seen


class Progress(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.large = out_path("large-order.xml")
        generator = os.path.join(ARGS.source_dir, "bench", "make-large-order.py")
        subprocess.run([sys.executable, generator, "40000", cls.large], check=True)
        assert os.path.getsize(cls.large) > (5 << 20)

    def test_a_terminal_sees_the_line_and_is_left_clean(self):
        status, _, seen = run_with_terminal([ORVEX, "convert", self.large, out_path("large.finf"), "--to", "fi"])
        self.assertEqual(status, 0, seen)
        self.assertIn(b"orvex: " + self.large.encode(), seen)
        self.assertIn(b"MB)", seen)
        self.assertTrue(seen.endswith(b"\r\x1b[K"), seen[-40:])

    def test_nothing_on_a_pipe(self):
        done = run("convert", self.large, out_path("large.finf"), "--to", "fi")
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        done = run("stats", self.large)
        self.assertEqual((done.returncode, done.stderr), (0, b""))

    def test_nothing_for_a_small_input(self):
        small = os.path.join(ARGS.source_dir, "examples", "purchase-order", "po.xml")
        status, _, seen = run_with_terminal([ORVEX, "convert", small, out_path("small.xml")])
        self.assertEqual((status, seen), (0, b""))


class Installed(unittest.TestCase):
    def test_binary_and_manual_page_are_installed(self):
        if not ARGS.install_from:
            self.skipTest("the package does not install")
        prefix = os.path.dirname(os.path.dirname(ORVEX))
        self.assertTrue(os.path.isfile(os.path.join(prefix, "share", "man", "man1", "orvex.1")))
        done = run("--version")
        self.assertEqual(done.returncode, 0)
        self.assertRegex(done.stdout, rb"^orvex \d+\.\d+\.\d+ \(library \d+\.\d+\.\d+\)\n$")


def main():
    global ARGS, ORVEX, WORK, ORACLE
    parser = argparse.ArgumentParser()
    parser.add_argument("--binary", required=True)
    parser.add_argument("--source-dir", required=True)
    parser.add_argument("--work-dir", required=True)
    parser.add_argument("--install-from", default="")
    parser.add_argument("--fi-oracle", default="")
    ARGS, rest = parser.parse_known_args()
    WORK = os.path.abspath(ARGS.work_dir)
    shutil.rmtree(WORK, ignore_errors=True)
    os.makedirs(WORK)
    ORVEX = ARGS.binary
    if ARGS.install_from:
        prefix = os.path.join(WORK, "prefix")
        subprocess.run(["cmake", "--install", ARGS.install_from, "--prefix", prefix], check=True,
                       stdout=subprocess.DEVNULL)
        ORVEX = os.path.join(prefix, "bin", "orvex")
    oracle = os.environ.get("ORVEX_FI_ORACLE", ARGS.fi_oracle)
    if oracle and os.access(oracle, os.X_OK) and shutil.which("java"):
        ORACLE = oracle
    WORK = os.path.join(WORK, "files")
    os.makedirs(WORK)
    unittest.main(argv=[sys.argv[0], *rest], verbosity=2)


if __name__ == "__main__":
    main()
