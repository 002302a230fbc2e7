"""Prints the layout of the classes in public headers, for programs that were compiled with older headers.

Run by gdb on a library with debug information. The environment variable PUBLIC_HEADERS has the headers as
programs include them, separated by semicolons. Each class is a line with its size and alignment and a line per base and data
member with its offset in bytes."""

import os
import re

import gdb

STANDARD_STRINGS = [
    (r"std::(?:__cxx11::)?basic_string<char, std::char_traits<char>, std::allocator<char> ?>", "std::string"),
    (r"std::(?:__cxx11::)?basic_string<char16_t, std::char_traits<char16_t>, std::allocator<char16_t> ?>",
     "std::u16string"),
]


def classes_in(headers):
    """The names of the classes that headers with these ends of their paths define."""
    is_public = False
    for line in gdb.execute("info types -q .", to_string=True).splitlines():
        if line.startswith("File "):
            is_public = line.rstrip(":").endswith(headers)
        elif is_public and (match := re.fullmatch(r"\d+:\s+(?!typedef |enum )(.*);", line)):
            yield match[1]


def short(type_name):
    for pattern, name in STANDARD_STRINGS:
        type_name = re.sub(pattern, name, type_name)
    return type_name


def print_layout(name):
    record = gdb.lookup_type(name)
    if record.code not in (gdb.TYPE_CODE_STRUCT, gdb.TYPE_CODE_UNION):
        return
    print(f"{short(name)}: size {record.sizeof}, alignment {record.alignof}")
    for field in record.fields():
        if hasattr(field, "bitpos"):  # static members have none
            print(f"{short(name)}: at {field.bitpos // 8} {short(str(field.type))} {field.name}")


gdb.execute("set language c++")
public_headers = tuple("/" + header for header in os.environ["PUBLIC_HEADERS"].split(";"))
for class_name in classes_in(public_headers):
    print_layout(class_name)
