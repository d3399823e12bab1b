#!/usr/bin/env python3
"""Where the exported names are defined, read from the sources.

    names.py where NAME...   file:line of the definition, for any spelling of an exported name
    names.py missing         the names that stand whole on no line that defines them, by subsystem

The spellings of one routine differ in case and closing underscores only; one of them is enough. A line
defines a name if it is a macro call at the left margin that is given the name, an entry in a list of
names (a macro of several lines), or a definition of the name in plain C++. Declarations, calls,
comments and texts do not count. Exit status 1 if a name is not found.
"""
import collections
import glob
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SUBSYSTEMS = ("serv", "blas", "dft", "spblas", "signal", "gmp")
WORD = re.compile(r"[A-Za-z_]\w*")
MACRO = re.compile(r"[A-Z][A-Z0-9_]*\(") # at the left margin: makes the names that it is given
DECLARATION = re.compile(r"(extern|using|typedef|struct|class|enum|template|friend)\b")
C_INTERFACE = "blas/cblas/" # its macros are also given the names of what they call


def group(name):
    return name.lower().rstrip("_")


def code_of(text):
    """The text without comments and literals; every line keeps its number."""
    def blank(match):
        return "\n" * match.group().count("\n")
    return re.sub(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'', blank, text,
                  flags=re.S)


def chunks(code):
    """(line number, text) of what begins at the left margin, up to the next such line. A macro
    definition is one chunk whatever its margin."""
    start, lines, macro = 1, [], False
    for number, line in enumerate(code.split("\n"), 1):
        if not macro and re.match(r"[^\s}]", line):
            if lines:
                yield start, "\n".join(lines)
            start, lines = number, []
        lines.append(line)
        macro = line.endswith("\\")
    yield start, "\n".join(lines)


def definitions(code):
    """(name, line number) of every name that a line defines."""
    for start, chunk in chunks(code):
        if chunk.startswith("#define") and "\\\n" in chunk:
            # A list of names: calls of the macro's parameter, X(name, ...).
            depth = 0
            for offset, line in enumerate(chunk.split("\n")):
                if depth > 0 or re.match(r"\s+[A-Z]\w*\(", line):
                    for word in WORD.findall(line):
                        yield word, start + offset
                    depth += line.count("(") - line.count(")")
            continue
        if chunk.startswith("#"):
            continue
        if MACRO.match(chunk):
            depth = 0
            for offset, line in enumerate(chunk.split("\n")):
                for word in WORD.findall(line):
                    yield word, start + offset
                depth += line.count("(") - line.count(")")
                if depth <= 0:
                    break
            continue
        end = re.search(r"[{=;]", chunk)
        if not end:
            continue
        head = chunk[:end.start()].rstrip()
        if end.group() == ";" and ("(" in head or DECLARATION.match(head)):
            continue
        named = re.search(r"(\w+)\s*(?:\(|\bPARAMS_|\[[^\]]*\]$|$)", head)
        if named:
            yield named.group(1), start + head[:named.start()].count("\n")


def where():
    """group -> [file:line] of all that is defined."""
    found = collections.defaultdict(list)
    for subsystem in SUBSYSTEMS:
        for path in sorted(glob.glob(f"{ROOT}/{subsystem}/**/*.*", recursive=True)):
            if not path.endswith((".cpp", ".h")):
                continue
            with open(path, encoding="utf-8") as file:
                code = code_of(file.read())
            for name, line in definitions(code):
                place = f"{os.path.relpath(path, ROOT)}:{line}"
                if place.startswith(C_INTERFACE) and not re.match("cblas_|vor_serv_f", name):
                    continue
                if place not in found[group(name)]:
                    found[group(name)].append(place)
    return found


def exports():
    with open(f"{ROOT}/exports.txt", encoding="utf-8") as file:
        return [line.strip() for line in file if line.strip() and not line.startswith("#")]


# A name's subsystem, by the first pattern that fits.
FAMILIES = (
    ("cblas", r"cblas_"), ("spblas", r"vor_spblas|vor_d(csr|csc|coo|dia|sky)"),
    ("blas/check", r"vor_blas_errchk"), ("blas engines", r"vor_blas"),
    ("dft", r"vor_dft_|dfti|[sdcz]z?s?c?d?fft[12]d"),
    ("gmp", r"vor_gmp|__gmp|_gmp|_imp|mpn|mpz|__mp"),
    ("serv", r"vor|named_errors|get_cfg|dll_|remove_|strlwr|searchpath|xerbla|lsame|ilaenv|d?secnd|"
             r"second|getcpu"),
    ("signal", r"tavs|own|bn_|cp"), ("blas", r"i?[sdczx]"))


def family(name):
    for folder, pattern in FAMILIES:
        if re.match(pattern, name):
            return folder
    return "other"


def main():
    if len(sys.argv) > 2 and sys.argv[1] == "where":
        found, known = where(), {group(name) for name in exports()}
        absent = False
        for name in sys.argv[2:]:
            places = found.get(group(name), [])
            if group(name) not in known:
                print(f"{name}: not exported", file=sys.stderr)
            elif not places:
                print(f"{name}: no line defines it by its whole name", file=sys.stderr)
            print(*places, sep="\n", end="\n" if places else "")
            absent = absent or not places or group(name) not in known
        return 1 if absent else 0
    if sys.argv[1:] == ["missing"]:
        found = where()
        absent = collections.defaultdict(list)
        groups = sorted({group(name) for name in exports()})
        for name in groups:
            if name not in found:
                absent[family(name)].append(name)
        count = sum(map(len, absent.values()))
        print(f"{count} of {len(groups)} exported names stand whole on no line that defines them")
        for folder, names in sorted(absent.items()):
            print(f"{folder} ({len(names)}): {' '.join(names)}")
        return 1 if count else 0
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main())
