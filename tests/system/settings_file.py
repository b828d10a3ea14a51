"""Reads and writes the settings file by docs/settings-format.md, independently of the program.

    settings_file.py show FILE             prints the templates, each "name: text", and the windows, front to back, each
                                           "left top width height text" or "chooser"
    settings_file.py write FILE WINDOW...  writes a file with these windows, each "left top width height text"
"""

import pathlib
import sys
import urllib.parse


def items(data):
    """The (key, value) pairs of one list; raises a ValueError if it is truncated."""
    if not data or data[0] not in (1, 2, 4):
        raise ValueError(f"no list: {data[:1]!r} of {len(data)} bytes")
    pairs, position = [], 1

    def take(count):
        nonlocal position
        position += count
        if position > len(data):
            raise ValueError(f"cut off at {len(data)} of {position} bytes")
        return data[position - count:position]

    while position < len(data):
        key = take(take(1)[0])
        pairs.append((key.decode(), take(int.from_bytes(take(data[0]), "big"))))
    return pairs


def packed(pairs):
    width = next(w for w in (1, 2, 4) if max((len(value) for _, value in pairs), default=0) < 256**w)
    return bytes([width]) + b"".join(bytes([len(key)]) + key.encode() + len(value).to_bytes(width, "big") + value
                                     for key, value in pairs)


PLACE = ("left", "top", "width", "height")


def stored(path):
    """The templates and windows of a file, one text for each, as `show` prints them."""
    sections = dict(items(path.read_bytes()))
    lines = []
    for _, record in items(sections["TemplateList"]) + items(sections["WindowList"]):
        fields = {key: urllib.parse.unquote(value.decode()) for key, value in items(record)}
        if "template" in fields:
            lines.append("chooser")
        elif fields:
            place = " ".join(fields[key] for key in PLACE) if "left" in fields else fields["name"] + ":"
            lines.append(f"{place} {fields['equation']}")
    return lines


def write(path, *windows, runs=1):
    records = []
    for window in windows:
        *place, text = window.split(" ", 4)
        records.append(packed([*zip(PLACE, (value.encode() for value in place)),
                               ("equation", urllib.parse.quote(text).encode())]))
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(packed([("RunCount", b"%d" % runs), ("TemplateList", packed([])),
                             ("WindowList", packed([(str(i), record) for i, record in enumerate(records)]))]))


if __name__ == "__main__":
    file = pathlib.Path(sys.argv[2])
    if sys.argv[1] == "show":
        print(*stored(file), sep="\n")
    else:
        write(file, *sys.argv[3:])
