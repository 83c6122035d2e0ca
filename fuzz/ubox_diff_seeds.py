#!/usr/bin/env python3
"""Writes seed inputs for fuzz_ubox_diff into a folder (default
fuzz/corpus/fuzz_ubox_diff): messages and policies that reach the corners
where two blobmsg implementations tend to part (repeated keys, element types
out of order, odd value lengths, names and escapes in JSON text, nests that
grow the buffer). The layout follows how the target reads its input with
FuzzedDataProvider: strings from the front, small numbers from the back.
"""
import os
import struct
import sys

UNSPEC, ARRAY, TABLE, STRING, INT64, INT32, INT16, INT8, DOUBLE, CAST_INT64 = range(10)


class Input:
    def __init__(self):
        self.front = bytearray()
        self.back = bytearray()

    def number(self, low, value):
        self.back.append(value - low)

    def string(self, data):
        if isinstance(data, str):
            data = data.encode()
        self.front += data.replace(b"\\", b"\\\\") + b"\\;"

    def raw(self, data):
        self.front += data

    def bytes(self):
        return bytes(self.front) + bytes(reversed(self.back))


def attr(kind, value=b"", name=None):
    """One attribute; extended (blobmsg) when it has a name, even an empty one."""
    if name is None:
        body = value
        head = kind << 24
    else:
        n = name.encode()
        hdr = struct.pack(">H", len(n)) + n + b"\0"
        hdr += b"\0" * (-len(hdr) % 4)
        body = hdr + value
        head = 0x80000000 | kind << 24
    raw = struct.pack(">I", head | (4 + len(body))) + body
    return raw + b"\0" * (-len(raw) % 4)


def seed(policy, message, json="{}", ops=b"", check_type=UNSPEC, indent=1):
    i = Input()
    i.number(1, len(policy))
    for name, kind in policy:
        i.number(0, 0 if name is None else 1)
        i.string(name or "")
        i.number(0, kind)
    i.number(0, check_type)
    i.number(0, STRING)  # cb_type
    i.number(0, indent)
    i.string(message)
    i.string(json)
    i.raw(ops)
    return i.bytes()


def build_ops(steps):
    """steps: (op, name or None, extra front bytes, extra back numbers)."""
    i = Input()
    for op, name, front, back in steps:
        i.number(0, op)
        if name is not None or op in (0, 1, 4, 5, 6, 7, 8, 9, 11):
            i.string(name or "")
            i.number(0, 1 if name is not None else 0)
        for b in back:
            i.back.append(b)
        if front is not None:
            i.string(front)
    return i.bytes()


def u32(v):
    return struct.pack(">I", v)


SEEDS = {
    "repeated-key": seed([("a", INT32), ("a", UNSPEC)], attr(INT32, u32(1), "a")),
    "array-order": seed([("", INT32), ("", STRING)],
                        attr(ARRAY, attr(STRING, b"x\0", "") + attr(INT32, u32(5), ""), "l"),
                        check_type=INT32),
    "long-double": seed([("d", DOUBLE)], attr(DOUBLE, b"\x3f\xf0" + b"\0" * 10, "d")),
    "empty-table": seed([("t", TABLE)], attr(TABLE, b"", "t"), check_type=CAST_INT64),
    "long-name": seed([("n" * 257, STRING)], attr(STRING, b"v\0", "n" * 257)),
    "escapes": seed([("s", STRING)], attr(STRING, b"a\b\r\t\n\"\\\x01\0", "s")),
    "unnamed": seed([("", INT8)], attr(INT8, b"\1", "") + attr(INT16, b"\0\2", "x")),
    "plain-attr": seed([("x", UNSPEC)], attr(INT32, u32(7)) + attr(TABLE, attr(INT32, u32(3), "y"), "x")),
    "bad-member": seed([("t", TABLE)], attr(TABLE, attr(INT32, b"\0\0", "a") + attr(INT8, b"\1", "b"), "t")),
    "cut-short": seed([("a", STRING)], attr(STRING, b"abc\0", "a")[:-2]),
    "json-double": seed([("a", CAST_INT64)], attr(INT64, struct.pack(">q", -5), "a"),
                        json='{"a":1.8e308,"b":[1,"x",{"c":null}],"d":true,"e":-9007199254740993}'),
    "json-nest": seed([("a", ARRAY)], b"", json='{"a":[[[{"b":[{},[]]}]]],"":1,"t":"\\b\\r"}'),
    "json-array": seed([("v", ARRAY)], b"", json='[1,{"a":2.5,"b":[]},"s",null,false,4294967296]'),
    "build-nests": seed([("a", STRING)], b"", ops=build_ops([
        (0, "t", None, []), (8, "", None, [0, 0, 0, 1]), (1, "l", None, []),
        (4, None, "text", []), (5, "big", None, [7]), (3, None, None, []),
        (2, None, None, [9]), (12, None, "raw", [3]), (3, None, None, []), (3, None, None, []),
    ])),
}


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "corpus", "fuzz_ubox_diff")
    os.makedirs(out, exist_ok=True)
    for name, data in SEEDS.items():
        with open(os.path.join(out, name), "wb") as f:
            f.write(data)


if __name__ == "__main__":
    main()
