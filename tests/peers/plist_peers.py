#!/usr/bin/env python3
"""Exchanges generated property lists with plistlib and plistutil, in both directions."""
import datetime
import pathlib
import plistlib
import random
import struct
import subprocess
import sys
import tempfile

COUNT = 300
PEER = sys.argv[1]


def line(value):
    """The form that plist_peer prints."""
    if isinstance(value, bool):
        return f"b:{value:d}"
    if isinstance(value, int):
        return f"i:{value}"
    if isinstance(value, float):
        return f"r:{struct.pack('>d', value).hex()}"
    if isinstance(value, str):
        return f"s:{value.encode().hex()}"
    if isinstance(value, bytes):
        return f"d:{value.hex()}"
    if isinstance(value, datetime.datetime):
        return f"t:{(value - datetime.datetime(1970, 1, 1)).total_seconds():.0f}"
    if isinstance(value, list):
        return "[" + "".join(line(item) + "," for item in value) + "]"
    members = sorted((key.encode(), item) for key, item in value.items())
    return "{" + "".join(f"{key.hex()}={line(item)}," for key, item in members) + "}"


REALS = [0.1, -2.5e300, 5e-324, 12345.015625]


def generate(rng, depth, reals=REALS):
    kinds = ["bool", "small", "large", "real", "text", "data", "date"] + ["list", "dict"] * (depth > 0)
    kind = rng.choice(kinds)
    if kind == "bool":
        return rng.random() < 0.5
    if kind == "small":
        return rng.randrange(-200, 70000)
    if kind == "large":
        return rng.randrange(-2**63, 2**63)
    if kind == "real":
        return rng.choice(reals)
    if kind == "text":
        return "".join(rng.choice("aZ &<>\"'\t\né中😀%]") for _ in range(rng.randrange(20)))
    if kind == "data":
        return rng.randbytes(rng.randrange(40))
    if kind == "date":
        return datetime.datetime(1970, 1, 1) + datetime.timedelta(seconds=rng.randrange(-10**9, 4 * 10**9))
    if kind == "list":
        return [generate(rng, depth - 1, reals) for _ in range(rng.randrange(6))]
    return {f"k{i}é"[: rng.randrange(2, 5)] + str(i): generate(rng, depth - 1, reals) for i in range(rng.randrange(20))}


def dumped(files):
    output = subprocess.run([PEER, "dump", *files], check=True, capture_output=True, text=True)
    return output.stdout.splitlines()


def check(what, expected, found):
    assert len(expected) == COUNT == len(found), f"{what}: {len(expected)} and {len(found)} lists"
    for number, (left, right) in enumerate(zip(expected, found)):
        if left != right:
            sys.exit(f"{what}: list {number} differs:\n{left}\n{right}")
    print(f"{what}: {COUNT} lists agree")


def convert(files, form, folder):
    """The files as plistutil writes them."""
    target = folder / f"plistutil-{form}"
    target.mkdir()
    converted = []
    for file in files:
        converted.append(target / file.name)
        subprocess.run(["plistutil", "-i", file, "-o", converted[-1], "-f", form], check=True)
    return converted


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        made = subprocess.run([PEER, "make", "1", str(COUNT), name], check=True, capture_output=True, text=True)
        ours = [folder / f"{i}.plist" for i in range(COUNT)]
        values = made.stdout.splitlines()
        check("ours, read by plistlib", values, [line(plistlib.loads(f.read_bytes())) for f in ours])
        check("ours, read by us", values, dumped(ours))

        rng = random.Random(2)
        lists = [generate(rng, 4) for _ in range(COUNT)]
        for form in (plistlib.FMT_XML, plistlib.FMT_BINARY):
            files = []
            for i, value in enumerate(lists):
                files.append(folder / f"{form.name}-{i}.plist")
                files[-1].write_bytes(plistlib.dumps(value, fmt=form))
            check(f"plistlib's {form.name}, read by us", [line(value) for value in lists], dumped(files))

        check("ours, made binary by plistutil", values, dumped(convert(ours, "bin", folder)))
        # its XML has six digits of a real
        few = [generate(rng, 4, reals=[0.5, -2.25, 1024.0]) for _ in range(COUNT)]
        files = [folder / f"few-{i}.plist" for i in range(COUNT)]
        for file, value in zip(files, few):
            file.write_bytes(plistlib.dumps(value, fmt=plistlib.FMT_BINARY))
        check("plistlib's binary, made XML by plistutil", [line(value) for value in few],
              dumped(convert(files, "xml", folder)))


if __name__ == "__main__":
    main()
