#!/usr/bin/env python3
"""Generates the C++ message layer of LmLinkCore from MAVLink XML definitions.

Usage: generate_mavlink.py DIALECT_XML OUTPUT_DIR

Reads the dialect and every file it includes, then writes into OUTPUT_DIR:
  LmMavlinkEnums.h         one enum per XML enum
  LmMavlinkMessages.h/.cpp one struct per message with Pack()/Unpack()
  LmMavlinkMessageInfo.cpp field layout, CRC_EXTRA and lengths for lookup
Only the Python standard library is used.
"""

import os
import sys
import xml.etree.ElementTree as ET

MAX_PAYLOAD = 255

# XML type -> (C++ type, size in bytes, EFieldType enumerator)
TYPES = {
    "char": ("char", 1, "Char"),
    "int8_t": ("int8_t", 1, "Int8"),
    "uint8_t": ("uint8_t", 1, "UInt8"),
    "int16_t": ("int16_t", 2, "Int16"),
    "uint16_t": ("uint16_t", 2, "UInt16"),
    "int32_t": ("int32_t", 4, "Int32"),
    "uint32_t": ("uint32_t", 4, "UInt32"),
    "int64_t": ("int64_t", 8, "Int64"),
    "uint64_t": ("uint64_t", 8, "UInt64"),
    "float": ("float", 4, "Float"),
    "double": ("double", 8, "Double"),
}

# The heartbeat's version byte is an ordinary uint8_t on the wire that the
# sender fills with the protocol version of the definitions.
MAVLINK_VERSION_TYPE = "uint8_t_mavlink_version"

CPP_KEYWORDS = {
    "alignas", "alignof", "and", "asm", "auto", "bool", "break", "case", "catch", "char", "class",
    "const", "constexpr", "continue", "default", "delete", "do", "double", "else", "enum",
    "explicit", "export", "extern", "false", "float", "for", "friend", "goto", "if", "inline",
    "int", "long", "mutable", "namespace", "new", "noexcept", "not", "nullptr", "operator", "or",
    "private", "protected", "public", "register", "return", "short", "signed", "sizeof", "static",
    "struct", "switch", "template", "this", "throw", "true", "try", "typedef", "typeid",
    "typename", "union", "unsigned", "using", "virtual", "void", "volatile", "while", "xor",
}


class GeneratorError(Exception):
    pass


def x25_accumulate(crc, byte):
    tmp = (byte ^ (crc & 0xFF)) & 0xFF
    tmp = (tmp ^ (tmp << 4)) & 0xFF
    return ((crc >> 8) ^ (tmp << 8) ^ (tmp << 3) ^ (tmp >> 4)) & 0xFFFF


def x25_text(crc, text):
    for byte in text.encode("ascii"):
        crc = x25_accumulate(crc, byte)
    return crc


class Field:
    def __init__(self, element, extension):
        self.name = element.get("name")
        self.extension = extension
        raw_type = element.get("type")
        self.array_length = 0
        if "[" in raw_type:
            raw_type, length = raw_type[:-1].split("[")
            self.array_length = int(length)
        self.is_version_byte = raw_type == MAVLINK_VERSION_TYPE
        self.xml_type = "uint8_t" if self.is_version_byte else raw_type
        if self.xml_type not in TYPES:
            raise GeneratorError("unknown field type %s of field %s" % (raw_type, self.name))
        self.cpp_type, self.type_size, self.enum_type = TYPES[self.xml_type]
        self.member = self.name + "_" if self.name in CPP_KEYWORDS else self.name
        self.offset = 0

    @property
    def wire_size(self):
        return self.type_size * max(1, self.array_length)


class Message:
    def __init__(self, element):
        self.name = element.get("name")
        self.msgid = int(element.get("id"))
        self.fields = []
        extension = False
        for child in element:
            if child.tag == "extensions":
                extension = True
            elif child.tag == "field":
                self.fields.append(Field(child, extension))
        base = [f for f in self.fields if not f.extension]
        # Stable sort: fields of equal size keep their declaration order.
        self.wire_fields = sorted(base, key=lambda f: -f.type_size) + [
            f for f in self.fields if f.extension]
        offset = 0
        for field in self.wire_fields:
            field.offset = offset
            offset += field.wire_size
        self.max_length = offset
        self.min_length = sum(f.wire_size for f in base)
        if self.max_length > MAX_PAYLOAD:
            raise GeneratorError("message %s has a %d byte payload" % (self.name, self.max_length))
        if not 0 <= self.msgid < (1 << 24):
            raise GeneratorError("message %s has id %d out of range" % (self.name, self.msgid))
        self.crc_extra = self.compute_crc_extra()

    def compute_crc_extra(self):
        crc = x25_text(0xFFFF, self.name + " ")
        for field in self.wire_fields:
            if field.extension:
                continue
            crc = x25_text(crc, field.xml_type + " ")
            crc = x25_text(crc, field.name + " ")
            if field.array_length:
                crc = x25_accumulate(crc, field.array_length)
        return (crc & 0xFF) ^ (crc >> 8)

    @property
    def struct_name(self):
        return "S" + "".join(part.capitalize() for part in self.name.split("_"))


class Definitions:
    def __init__(self):
        self.messages = []
        self.enums = {}  # name -> list of (entry name, value), merged over files
        self.version = None
        self._loaded = set()

    def load(self, path):
        path = os.path.realpath(path)
        if path in self._loaded:
            return
        self._loaded.add(path)
        root = ET.parse(path).getroot()
        for include in root.findall("include"):
            self.load(os.path.join(os.path.dirname(path), include.text.strip()))
        version = root.find("version")
        if version is not None and self.version is None:
            self.version = int(version.text)
        for enum in root.iter("enum"):
            entries = self.enums.setdefault(enum.get("name"), [])
            for entry in enum.findall("entry"):
                entries.append((entry.get("name"), int(entry.get("value"), 0)))
        for message in root.iter("message"):
            self.messages.append(Message(message))

    def check(self):
        for attribute in ("msgid", "name", "struct_name"):
            seen = {}
            for message in self.messages:
                key = getattr(message, attribute)
                if key in seen:
                    raise GeneratorError("messages %s and %s share %s %s"
                                         % (seen[key], message.name, attribute, key))
                seen[key] = message.name
        entry_names = set()
        for name, entries in self.enums.items():
            for entry, _ in entries:
                if entry in entry_names:
                    raise GeneratorError("enum entry %s is defined twice" % entry)
                entry_names.add(entry)
        self.messages.sort(key=lambda m: m.msgid)


def cpp_string(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def header_banner(what):
    return ("// Generated by generate_mavlink.py from the MAVLink XML definitions: %s.\n"
            "// Do not edit; change the XML instead.\n" % what)


def write_enums(definitions, out):
    out.write(header_banner("enumerations"))
    out.write("#pragma once\n\n#include <cstdint>\n\nnamespace LmMavlink {\n\n")
    for name in sorted(definitions.enums):
        out.write("enum %s : uint32_t {\n" % name)
        for entry, value in definitions.enums[name]:
            out.write("    %s = %du,\n" % (entry, value))
        out.write("};\n\n")
    out.write("} // namespace LmMavlink\n")


def member_declaration(field, version):
    suffix = "[%d]" % field.array_length if field.array_length else ""
    initial = "{%d}" % version if field.is_version_byte else "{}"
    return "    %s %s%s%s;\n" % (field.cpp_type, field.member, suffix, initial)


def write_messages_header(definitions, out):
    out.write(header_banner("message structs"))
    out.write("#pragma once\n\n#include \"LmMavlinkEnums.h\"\n#include \"mavlink_message_t.h\"\n\n"
              "#include <cstddef>\n#include <cstdint>\n\n")
    out.write("namespace LmMavlink {\n\n")
    out.write("// Protocol version written into HEARTBEAT.mavlink_version.\n")
    out.write("constexpr uint8_t MAVLINK_DEFINITIONS_VERSION = %d;\n\n" % (definitions.version or 0))
    for message in definitions.messages:
        out.write("constexpr uint32_t MSG_ID_%s = %d;\n" % (message.name, message.msgid))
    out.write("\n")
    for message in definitions.messages:
        out.write("struct %s {\n" % message.struct_name)
        out.write("    static constexpr uint32_t MSG_ID = %d;\n" % message.msgid)
        out.write("    static constexpr uint8_t CRC_EXTRA = %d;\n" % message.crc_extra)
        out.write("    static constexpr uint8_t MIN_LENGTH = %d;\n" % message.min_length)
        out.write("    static constexpr uint8_t MAX_LENGTH = %d;\n" % message.max_length)
        out.write("    static constexpr const char* NAME = %s;\n\n" % cpp_string(message.name))
        for field in message.fields:
            out.write(member_declaration(field, definitions.version or 0))
        out.write("\n    // Writes MAX_LENGTH bytes in wire order.\n")
        out.write("    void Pack(uint8_t* payload) const;\n")
        out.write("    // Reads a payload of any length; missing trailing bytes read as zero.\n")
        out.write("    static %s Unpack(const uint8_t* payload, std::size_t length);\n" % message.struct_name)
        out.write("    static %s Unpack(const mavlink_message_t& message)\n" % message.struct_name)
        out.write("    {\n        return Unpack(message.payload, message.len);\n    }\n")
        out.write("};\n\n")
    out.write("} // namespace LmMavlink\n")


def write_messages_source(definitions, out):
    out.write(header_banner("message Pack/Unpack"))
    out.write("#include \"LmMavlinkMessages.h\"\n\n#include <algorithm>\n#include <cstring>\n\n")
    out.write("namespace LmMavlink {\n\n")
    for message in definitions.messages:
        struct = message.struct_name
        out.write("void %s::Pack(uint8_t* payload) const\n{\n" % struct)
        if not message.wire_fields:
            out.write("    (void)payload;\n")
        for field in message.wire_fields:
            # Members go through this-> because a field may be named like the parameter.
            source = ("this->" if field.array_length else "&this->") + field.member
            out.write("    std::memcpy(payload + %d, %s, %d);\n" % (field.offset, source, field.wire_size))
        out.write("}\n\n")
        out.write("%s %s::Unpack(const uint8_t* payload, std::size_t length)\n{\n" % (struct, struct))
        out.write("    uint8_t wire[MAX_LENGTH] = {};\n")
        out.write("    std::memcpy(wire, payload, std::min<std::size_t>(length, MAX_LENGTH));\n")
        out.write("    %s message;\n" % struct)
        for field in message.wire_fields:
            target = "message." + field.member if field.array_length else "&message." + field.member
            out.write("    std::memcpy(%s, wire + %d, %d);\n" % (target, field.offset, field.wire_size))
        out.write("    return message;\n}\n\n")
    out.write("} // namespace LmMavlink\n")


def write_message_info(definitions, out):
    out.write(header_banner("message layout tables"))
    out.write("#include \"LmMavlinkMessageInfo.h\"\n\n#include <algorithm>\n#include <cstring>\n#include <iterator>\n\n")
    out.write("namespace LmMavlink {\nnamespace {\n\n")
    for message in definitions.messages:
        if not message.wire_fields:
            continue
        out.write("const SFieldInfo FIELDS_%s[] = {\n" % message.name)
        for field in message.wire_fields:
            out.write("    {%s, EFieldType::%s, %d, %d, %s},\n" % (
                cpp_string(field.name), field.enum_type, field.array_length, field.offset,
                "true" if field.extension else "false"))
        out.write("};\n")
    out.write("\n// Sorted by message id for binary search.\nconst SMessageInfo MESSAGES[] = {\n")
    for message in definitions.messages:
        fields = "FIELDS_%s" % message.name if message.wire_fields else "nullptr"
        out.write("    {%d, %s, %d, %d, %d, %d, %s},\n" % (
            message.msgid, cpp_string(message.name), message.crc_extra, message.min_length,
            message.max_length, len(message.wire_fields), fields))
    out.write("};\n\n} // namespace\n\n")
    out.write("""const SMessageInfo* FindMessageInfo(uint32_t msgid)
{
    const auto found = std::lower_bound(std::begin(MESSAGES), std::end(MESSAGES), msgid,
                                        [](const SMessageInfo& info, uint32_t id) { return info.msgid < id; });
    return found != std::end(MESSAGES) && found->msgid == msgid ? found : nullptr;
}

const SMessageInfo* FindMessageInfo(const char* name)
{
    const auto found = std::find_if(std::begin(MESSAGES), std::end(MESSAGES),
                                    [name](const SMessageInfo& info) { return std::strcmp(info.name, name) == 0; });
    return found != std::end(MESSAGES) ? found : nullptr;
}

std::size_t MessageInfoCount()
{
    return std::size(MESSAGES);
}

const SMessageInfo& MessageInfoAt(std::size_t index)
{
    return MESSAGES[index];
}

} // namespace LmMavlink
""")


def write_output(path, writer, definitions):
    with open(path, "w", encoding="utf-8") as target:
        writer(definitions, target)


def main(argv):
    if len(argv) != 3:
        sys.stderr.write(__doc__)
        return 2
    dialect, output_dir = argv[1], argv[2]
    definitions = Definitions()
    try:
        definitions.load(dialect)
        definitions.check()
    except (GeneratorError, ET.ParseError, OSError, ValueError) as error:
        sys.stderr.write("generate_mavlink.py: %s\n" % error)
        return 1
    os.makedirs(output_dir, exist_ok=True)
    outputs = {
        "LmMavlinkEnums.h": write_enums,
        "LmMavlinkMessages.h": write_messages_header,
        "LmMavlinkMessages.cpp": write_messages_source,
        "LmMavlinkMessageInfo.cpp": write_message_info,
    }
    for name, writer in outputs.items():
        write_output(os.path.join(output_dir, name), writer, definitions)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
