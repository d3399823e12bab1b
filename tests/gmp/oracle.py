#!/usr/bin/env python3
"""Exact answers for the tests of the integers, from Python's own.

    oracle.py --table    writes cases.txt: one case a line, "operation operand... = result..."
    oracle.py --serve    answers lines "operation operand..." by lines "result...", in full
    oracle.py --random SEED COUNT   writes COUNT random questions for --serve

An operand is a hexadecimal number, ones(n) = 2^n - 1, bit(k) = 2^k or rnd(seed,bits), a number of
exactly that many bits from SplitMix64; a minus may stand in front. A large result stands in the
table as its sign, its length in bits and its residues modulo three word primes.
"""
import math
import random
import sys

PRIMES = (4294967291, 4294967279, 4294967231)
MASK = (1 << 64) - 1


def rnd(seed, bits):
    value = 0
    for i in range((bits + 31) // 32):
        seed = (seed + 0x9e3779b97f4a7c15) & MASK
        z = seed
        z = ((z ^ (z >> 30)) * 0xbf58476d1ce4e5b9) & MASK
        z = ((z ^ (z >> 27)) * 0x94d049bb133111eb) & MASK
        value |= ((z ^ (z >> 31)) & 0xffffffff) << 32 * i
    return value & ((1 << bits) - 1) | 1 << (bits - 1)


def parse(text):
    if text[0] == "-":
        return -parse(text[1:])
    if text.startswith("ones("):
        return (1 << int(text[5:-1])) - 1
    if text.startswith("bit("):
        return 1 << int(text[4:-1])
    if text.startswith("rnd("):
        return rnd(*map(int, text[4:-1].split(",")))
    return int(text, 16)


def digest(x):
    if abs(x) < 1 << 64:
        return "%x" % x
    return ("-" if x < 0 else "+") + ":".join(
        [str(x.bit_length())] + ["%x" % (abs(x) % p) for p in PRIMES])


# ---- What the operations compute ---------------------------------------------------------------

def truncate(n, d):
    q, r = divmod(abs(n), abs(d))
    return [q if (n < 0) == (d < 0) else -q, -r if n < 0 else r]


def montgomery(f):
    def operation(n, *operands):
        k = (n.bit_length() + 31) // 32
        return [f(n, 1 << 32 * k, *operands)]
    return operation


OPERATIONS = {
    "bn_add": lambda a, b: [a + b],
    "bn_sub": lambda a, b: [a - b],
    "bn_mul": lambda a, b: [a * b],
    "bn_mac": lambda a, b, c: [c + a * b],
    "bn_div": truncate,
    "bn_mod": lambda a, m: [a % m],
    "bn_gcd": lambda a, b: [math.gcd(a, b)],
    "bn_modinv": lambda a, m: [pow(a, -1, m) if math.gcd(a, m) == 1 else 0],
    "mont_form": montgomery(lambda n, R, a: a * R % n),
    "mont_mul": montgomery(lambda n, R, a, b: a * b * pow(R, -1, n) % n),
    "mont_exp": montgomery(lambda n, R, x, e: pow(x * pow(R, -1, n), e, n) * R % n),
}


# ---- Cases ---------------------------------------------------------------------------------------

class Seeds:
    """Fresh seeds, the same in every run."""
    def __init__(self):
        self.last = 0

    def rnd(self, bits):
        self.last += 1
        return "rnd(%d,%d)" % (self.last, bits)


def shapes(seeds, words):
    """Operands of so many words: all ones, one bit, random."""
    return ["ones(%d)" % (32 * words), "bit(%d)" % (32 * words - 1), seeds.rnd(32 * words - 7)]


def signed(a, b):
    return [(a, b), (a, "-" + b), ("-" + a, b), ("-" + a, "-" + b)]


def big_number_cases(seeds):
    small = ["0", "1", "2", "ffffffff"]
    operands = small + [x for n in (1, 2, 3, 8, 9) for x in shapes(seeds, n)]
    for i, a in enumerate(operands):
        for b in operands[i % 3::3]:
            for x, y in signed(a, b) if i % 4 == 0 else [(a, b), ("-" + b, a)]:
                for op in ("bn_add", "bn_sub", "bn_mul"):
                    yield op, x, y
                yield "bn_mac", x, y, operands[(i + 5) % len(operands)]
                yield "bn_mac", x, y, "-" + operands[(i + 11) % len(operands)]
                if parse(y):
                    yield "bn_div", x, y
                if parse(y) > 0:
                    yield "bn_mod", x, y
                    if 0 < parse(x) < parse(y):
                        yield "bn_modinv", x, y
                if parse(x) or parse(y):
                    yield "bn_gcd", x, y
    # Quotients of every length over divisors of every length, the digits all ones: the estimate is
    # one too large where the divisor starts with a 1 bit and zeros and ends in ones.
    for n in (2, 3, 5, 12):
        for d in shapes(seeds, n) + ["%x" % ((1 << 32 * n - 1) + (1 << 32 * n - 33) - 1),
                                     "%x" % ((1 << 32 * n - 32) + 1)]:
            for q in ("ones(%d)" % (32 * n), "ones(32)", seeds.rnd(77)):
                yield "bn_div", "%x" % (parse(d) * parse(q) + parse(d) - 1), d
                yield "bn_div", "%x" % (parse(d) * parse(q)), d
    # Neighbours in the sequence of Fibonacci keep every quotient at 1; multiples of one number.
    f, g = 1, 1
    for i in range(600):
        f, g = g, f + g
        if i % 37 == 0:
            yield "bn_gcd", "%x" % g, "%x" % f
            yield "bn_modinv", "%x" % f, "%x" % (f + g)
            yield "bn_gcd", "%x" % (g * 0xfffffffb), "%x" % (f * 0xfffffffb)
            yield "bn_modinv", "%x" % (f * 6), "%x" % (g * 6 + f * 6)
    for n in (2, 3, 7, 20):
        common = rnd(n, 40)
        yield "bn_gcd", "%x" % (rnd(n + 50, 32 * n) * common), "%x" % (rnd(n + 60, 31 * n) * common)
    for words in (1, 2, 3, 4, 8, 9, 16, 30):
        for n in ("%x" % (parse(x) | 1) for x in shapes(seeds, words)):
            if n == "1":
                continue
            N = parse(n)
            residues = ["0", "1", "%x" % (N - 1), n, "%x" % (rnd(words, 32 * words + 5) % N)]
            for a in residues:
                yield "mont_form", n, a
                yield "mont_mul", n, a, residues[-1]
                yield "mont_mul", n, a, residues[2]
            for e in ("0", "1", "2", "3", "ffff", n, "%x" % (N - 1)):
                if parse(e) <= N and (words < 9 or e != n):
                    yield "mont_exp", n, residues[4], e
            yield "mont_exp", n, n, "2"


def table():
    seeds = Seeds()
    for case in big_number_cases(seeds):
        answer = OPERATIONS[case[0]](*map(parse, case[1:]))
        yield " ".join(case) + " = " + " ".join(map(digest, answer))


def main():
    if sys.argv[1:] == ["--table"]:
        print("\n".join(table()))
    elif sys.argv[1:] == ["--serve"]:
        for line in sys.stdin:
            operation, *operands = line.split()
            answer = OPERATIONS[operation](*map(parse, operands))
            print(" ".join("%x" % x for x in answer), flush=True)
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()
