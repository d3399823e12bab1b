#!/usr/bin/env python3
"""Checks the built shared object.

    check_object.py names|needs|sections|instructions LIBRARY EXPORTS

names         exactly the names of the list EXPORTS are exported, and all spellings of one routine
              (names that differ in case and closing underscores only) stand at one address
needs         SONAME, no library but libc, libm and the OpenMP runtime, no answer from the locale
sections      no text relocation, no executable stack, nothing that runs at load; stays loaded
instructions  no instruction above the SSE level

Every fault is one line; exit status 1 if there is one.
"""
import re
import subprocess
import sys

# SSE instructions on 128-bit registers, and the MMX and SSE ones on 64-bit registers.
SSE = set("""
addps addss andnps andps comiss cvtpi2ps cvtps2pi cvtsi2ss cvttps2pi cvtss2si cvttss2si divps divss
ldmxcsr maskmovq maxps maxss minps minss movaps movhlps movhps movlhps movlps movmskps movntps
movntq movss movups mulps mulss orps pavgb pavgw pextrw pinsrw pmaxsw pmaxub pminsw pminub pmovmskb
pmulhuw psadbw pshufw rcpps rcpss rsqrtps rsqrtss shufps sqrtps sqrtss stmxcsr subps subss ucomiss
unpckhps unpcklps xorps cvtsi2ssl cvtss2sil
""".split()) | {"cmp%s%s" % (c, w) for c in "eq lt le unord neq nlt nle ord".split()
                for w in ("ps", "ss")}
MMX = set("""
emms movd movq packssdw packsswb packuswb paddb paddd paddsb paddsw paddusb paddusw paddw pand pandn
pcmpeqb pcmpeqd pcmpeqw pcmpgtb pcmpgtd pcmpgtw pmaddwd pmulhw pmullw por pslld psllq psllw psrad
psraw psrld psrlq psrlw psubb psubd psubsb psubsw psubusb psubusw psubw punpckhbw punpckhdq
punpckhwd punpcklbw punpckldq punpcklwd pxor
""".split())
# Later instructions that name neither an MMX nor an XMM register.
LATER = re.compile(r"^(movnti|lfence|mfence|pause|clflush\w*|clwb|fisttp\w*|lddqu|monitor\w*|mwait\w*"
                   r"|popcnt\w*|crc32\w*|lzcnt\w*|tzcnt\w*|movbe\w*|andn\w?|bextr\w*|bls\w+|bzhi\w*"
                   r"|mulx\w*|pdep\w*|pext\w?|rorx\w*|sarx\w*|shlx\w*|shrx\w*|adcx\w*|adox\w*"
                   r"|rdrand\w*|rdseed\w*|rdtscp|endbr32|xsave\w*|xgetbv|v[a-z]+\d*\w*)$")
LATER_BUT_FINE = {"verr", "verw"}


def run(*command):
    return subprocess.run(command, text=True, capture_output=True, check=True).stdout


def exported(library):
    symbols = {}
    for line in run("readelf", "-W", "--dyn-syms", library).splitlines():
        word = line.split()
        if len(word) >= 8 and word[0].rstrip(":").isdigit() and word[6] != "UND":
            symbols[word[7].split("@")[0]] = word[1]
    return symbols


def names(library, listing):
    lines = [line.strip() for line in open(listing)]
    if lines != sorted(set(lines)):
        yield "the list of exports is not sorted, or holds a name twice"
    wanted, there = set(lines), exported(library)
    yield from ("not exported: " + n for n in sorted(wanted - there.keys()))
    yield from ("exported but not in the list: " + n for n in sorted(there.keys() - wanted))
    yield from ("mangled: " + n for n in sorted(there) if n.startswith("_Z"))
    groups = {}
    for name in wanted & there.keys():
        groups.setdefault(name.lower().rstrip("_"), set()).add(name)
    for group in groups.values():
        if len({there[name] for name in group}) > 1:
            yield "spellings at different addresses: " + " ".join(sorted(group))


def needs(library, _):
    dynamic = run("readelf", "-W", "-d", library)
    if "soname: [libvor_k1.so]" not in dynamic:
        yield "SONAME is not libvor_k1.so"
    for name in re.findall(r"\(NEEDED\).*\[(.*)\]", dynamic):
        if not re.match(r"(libc\.so\.6|libm\.so\.6|libgomp\.so\.1)$", name):
            yield "needs " + name
    for name in re.findall(r"UND (__ctype\w*|to(?:upp|low)er|is[a-z]+|strn?casecmp|strcoll)\b",
                           run("readelf", "-W", "--dyn-syms", library)):
        yield "depends on the locale: " + name


def sections(library, _):
    dynamic = run("readelf", "-W", "-d", library)
    for tag in ("TEXTREL", "(INIT)", "(INIT_ARRAY)", "(PREINIT_ARRAY)", "(FINI)", "(FINI_ARRAY)"):
        if tag in dynamic:
            yield "dynamic section has " + tag
    if not re.search(r"FLAGS_1.*NODELETE", dynamic):
        yield "goes away with dlclose"
    stack = re.search(r"GNU_STACK.*", run("readelf", "-W", "-l", library))
    if not stack or re.search(r"\bR?WE\b", stack.group()):
        yield "the stack is executable"
    for name in re.findall(r"\] (\.(?:init|fini|ctors|dtors|init_array|fini_array)\b\S*)",
                           run("readelf", "-W", "-S", library)):
        yield "section " + name


def instructions(library, _):
    function = ""
    for line in run("objdump", "-d", "--no-show-raw-insn", library).splitlines():
        header = re.match(r"[0-9a-f]+ <(.*)>:$", line)
        if header:
            function = header.group(1)
        parts = line.split("\t", 1)
        if len(parts) < 2 or not parts[0].strip().endswith(":"):
            continue
        text = re.sub(r"^(rep\w*|lock|notrack|bnd|data16|cs|ds|es|fs|gs|ss)\s+", "", parts[1])
        mnemonic = text.split()[0]
        if "%zmm" in text or "%ymm" in text:
            good = False
        elif "%xmm" in text:
            good = mnemonic in SSE
        elif "%mm" in text:
            good = mnemonic in SSE or mnemonic in MMX
        else:
            good = not LATER.match(mnemonic) or mnemonic in LATER_BUT_FINE
        if not good:
            yield "in %s: %s" % (function, parts[1])


def main():
    check, library, listing = sys.argv[1:]
    faults = list({"names": names, "needs": needs, "sections": sections,
                   "instructions": instructions}[check](library, listing))
    print("\n".join(faults[:50]) or "no fault")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
