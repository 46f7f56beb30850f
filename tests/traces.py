"""Traces for tests/browse, and what the programs say of them."""

import os
import struct
import subprocess
import sys
import tempfile

PROGRAM, CALLS, PAGE = (os.path.abspath(argument) for argument in sys.argv[1:4])
os.environ["TZ"] = "UTC"


def message(number, reference, kind, elements=b"", transmitted=False):
    """A record of a primary-rate trace: information frame N(S) `number`, SETUP 05, CONNECT 07, ..."""
    address = 0 if transmitted else 2
    frame = bytes([address, 1, number % 128 * 2, 0, 8, 2]) + struct.pack(">H", reference) + bytes([kind]) + elements
    return (b"T" if transmitted else b"R") + bytes([len(frame)]) + frame


def element(identifier, content):
    return bytes([identifier, len(content)]) + content


def time_stamp(ticks):
    return b"P\x04" + struct.pack("<I", ticks)


def write_trace(path, records):
    """A hex trace of a NET5 line with ticks of 10 ms, from 16 December 2026, 10:00:00 UTC."""
    with open(path, "wb") as trace:
        trace.write(struct.pack("<IHI", 1797415200, 0, 0) + b"\n11 02\n")
        trace.write(b"".join(record.hex(" ").encode() + b"\n" for record in records))
    return path


def records_of(path):
    """What stands before the records of a hex trace, and its records."""
    with open(path, "rb") as trace:
        head = trace.read(10)
        data = bytes(int(number, 16) for number in trace.read().split())
    basic_rate = data[0] >= 128
    records, at = [], 2
    while at < len(data):
        end = at + 2 + basic_rate
        end += data[end - 1]
        records.append(data[at:end])
        at = end
    return head + b"\n" + data[:2].hex(" ").encode() + b"\n", records


def report_of(folder, head, records):
    with open(f"{folder}/part", "wb") as trace:
        trace.write(head + b"\n".join(record.hex(" ").encode() for record in records))
    subprocess.run([PROGRAM, f"{folder}/part", f"{folder}/part.res", "-d"], stdout=subprocess.DEVNULL, check=False)
    with open(f"{folder}/part.res", "rb") as report:
        return report.read()


def lines_of_frames(path):
    """The lines of each frame, by the number of its first one: what the report has more with its record than without."""
    head, records = records_of(path)
    lines = {}
    with tempfile.TemporaryDirectory() as folder:
        before = report_of(folder, head, []).split(b"\n")[0] + b"\n"
        for count, record in enumerate(records, 1):
            report = report_of(folder, head, records[:count])
            assert report.startswith(before)
            if record[:1] in b"RT":
                lines[before.count(b"\n") + 1] = report[len(before):]
            before = report
    return lines


def table_of(*arguments):
    """What quandrix-calls prints, a dictionary a row."""
    table = subprocess.run([CALLS, "-d", *arguments], capture_output=True, check=True).stdout.decode("ascii")
    columns, *rows = [row.split("\t") for row in table.splitlines()]
    return [dict(zip(columns, row)) for row in rows]


def shown(data):
    """How the page shows bytes of the trace."""
    pictures = {byte: 0x2400 + byte for byte in range(0x20) if byte != 0x0A}
    hidden = {byte: 0xFFFD for byte in [*range(0x80, 0xA1), 0xAD]}
    return data.decode("latin-1").translate({**pictures, **hidden, 0x7F: 0x2421})
