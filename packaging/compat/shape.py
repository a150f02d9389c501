"""The shape of JSON documents, one after the other on standard input: the path
of each value that occurs, with the types that it has. Documents are of one
format, whose version comes first."""
import json
import sys

TYPES = {dict: "object", list: "array", str: "text", int: "number", float: "number",
         bool: "truth value", type(None): "null"}


def walk(value, path, shape):
    shape.setdefault(path or ".", set()).add(TYPES[type(value)])
    if isinstance(value, dict):
        for key, member in value.items():
            walk(member, f"{path}.{key}", shape)
    elif isinstance(value, list):
        for element in value:
            walk(element, path + "[]", shape)


def documents(text):
    decoder = json.JSONDecoder()
    text = text.lstrip()
    while text:
        document, end = decoder.raw_decode(text)
        yield document
        text = text[end:].lstrip()


def main():
    shape = {}
    versions = set()
    for document in documents(sys.stdin.read()):
        walk(document, "", shape)
        versions.add(document["format_version"])
    if len(versions) != 1:
        sys.exit(f"one version is wanted, there are: {sorted(versions)}")
    print("format_version", *versions)
    for path, types in sorted(shape.items()):
        print(path, " or ".join(sorted(types)))


if __name__ == "__main__":
    main()
