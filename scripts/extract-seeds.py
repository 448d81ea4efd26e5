#!/usr/bin/env python3
"""Writes the ZPX and Zpa documents that the C++ tests hold as string literals into a seed
directory for the fuzz targets, one file per distinct document, named by a hash of its bytes.

usage: extract-seeds.py OUTPUT_DIR [TEST_ROOT]

Literals are read with a small scanner: raw strings, ordinary strings with their escapes, and
adjacent literals joined as the compiler joins them. A literal the scanner cannot read is
skipped; the output depends only on the test sources.
"""
import hashlib
import pathlib
import re
import sys

ZPA_MAGIC = b"Zeph-Ascii-Dat"  # the reader compares the first 14 characters
XML_START = re.compile(rb"^\s*<(\?xml|[A-Z][A-Za-z0-9]*[\s/>])")
SIMPLE_ESCAPES = {"n": "\n", "r": "\r", "t": "\t", "0": "\0", "\\": "\\", '"': '"', "'": "'",
                  "a": "\a", "b": "\b", "f": "\f", "v": "\v", "?": "?"}


def decode(body):
    """The characters of an ordinary literal's body, or None for an escape not handled."""
    out, i = [], 0
    while i < len(body):
        c = body[i]
        if c != "\\":
            out.append(c)
            i += 1
            continue
        e = body[i + 1:i + 2]
        if e == "x":
            m = re.match(r"[0-9a-fA-F]+", body[i + 2:])
            if not m:
                return None
            out.append(chr(int(m.group(0), 16) & 0xFF))
            i += 2 + len(m.group(0))
        elif e in "01234567" and e:
            m = re.match(r"[0-7]{1,3}", body[i + 1:])
            out.append(chr(int(m.group(0), 8) & 0xFF))
            i += 1 + len(m.group(0))
        elif e in SIMPLE_ESCAPES:
            out.append(SIMPLE_ESCAPES[e])
            i += 2
        else:
            return None
    return "".join(out)


def literals(source):
    """The string literals of `source`, adjacent ones joined; None marks an unreadable one."""
    i, n = 0, len(source)
    current, last_end = None, -1
    while i < n:
        c = source[i]
        if source.startswith("//", i):
            i = source.find("\n", i)
            i = n if i < 0 else i
            continue
        if source.startswith("/*", i):
            i = source.find("*/", i + 2)
            i = n if i < 0 else i + 2
            continue
        if c == "'" and not (i > 0 and (source[i - 1].isalnum())):
            j = i + 1
            while j < n and source[j] != "'" and source[j] != "\n":
                j += 2 if source[j] == "\\" else 1
            i = j + 1
            continue
        text, end = None, None
        m = re.match(r'(?:u8|u|U|L)?R"([^()\\\s]{0,16})\(', source[i:i + 40])
        if m and (i == 0 or not (source[i - 1].isalnum() or source[i - 1] == "_")):
            close = ")" + m.group(1) + '"'
            j = source.find(close, i + m.end())
            if j < 0:
                return
            text, end = source[i + m.end():j], j + len(close)
        elif c == '"':
            j = i + 1
            while j < n and source[j] != '"' and source[j] != "\n":
                j += 2 if source[j] == "\\" else 1
            text, end = decode(source[i + 1:j]), j + 1
        if end is None:
            if not c.isspace():
                if current is not None:
                    yield current
                current, last_end = None, -1
            i += 1
            continue
        if last_end >= 0 and source[last_end:i].strip() == "":
            # Joined with the literal before; an unreadable piece spoils the whole.
            current = None if text is None or current is None else current + text
        else:
            if current is not None:
                yield current
            current = text
        last_end, i = end, end
    if current is not None:
        yield current


def is_document(data):
    return data.startswith(ZPA_MAGIC) or b"<Canvas" in data or XML_START.match(data) is not None


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    out = pathlib.Path(sys.argv[1])
    root = pathlib.Path(sys.argv[2] if len(sys.argv) == 3 else
                        pathlib.Path(__file__).resolve().parent.parent / "tests")
    out.mkdir(parents=True, exist_ok=True)
    for old in out.glob("seed-*"):
        old.unlink()
    seeds = {}
    for path in sorted(root.rglob("*.cpp")) + sorted(root.rglob("*.h")):
        # Latin-1 keeps every byte of the source, and of an escape, as one character.
        source = path.read_text(encoding="latin-1")
        for text in literals(source):
            if text is None:
                continue
            data = text.encode("latin-1")
            if is_document(data):
                seeds[hashlib.sha1(data).hexdigest()[:16]] = data
    for name, data in sorted(seeds.items()):
        (out / ("seed-" + name)).write_bytes(data)
    print(f"{len(seeds)} seeds in {out}")


if __name__ == "__main__":
    main()
