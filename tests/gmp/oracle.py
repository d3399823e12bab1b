#!/usr/bin/env python3
"""Exact answers for the tests of the integers, from Python's own.

    oracle.py --table FILE     writes the chosen cases: one a line, "operation operand... = result..."
    oracle.py --random SEED    writes random cases in the same form, without an end

An operand is a hexadecimal number, ones(n) = 2^n - 1, bit(k) = 2^k, rep(w,n), n words w, or
rnd(seed,bits), a number of exactly that many bits from SplitMix64; or a product of two of these; each
with another one added or subtracted behind it; a minus may stand in front of the whole. A large result stands for itself by
its sign, its length in bits and its residues modulo three word primes.
"""
import itertools
import math
import random
import signal
import struct
import sys

PRIMES = (4294967291, 4294967279, 4294967231)
MASK = (1 << 64) - 1
WORD = (1 << 32) - 1


def rnd(seed, bits):
    value = 0
    for i in range((bits + 31) // 32):
        seed = (seed + 0x9e3779b97f4a7c15) & MASK
        z = seed
        z = ((z ^ (z >> 30)) * 0xbf58476d1ce4e5b9) & MASK
        z = ((z ^ (z >> 27)) * 0x94d049bb133111eb) & MASK
        z ^= z >> 31
        value |= (z & WORD if z >> 62 > 1 else WORD * (z >> 62)) << 32 * i
    return value & ((1 << bits) - 1) | 1 << (bits - 1)


def atom(text):
    if text.startswith("ones("):
        return (1 << int(text[5:-1])) - 1
    if text.startswith("bit("):
        return 1 << int(text[4:-1])
    if text.startswith("rep("):
        word, n = text[4:-1].split(",")
        return int(word, 16) * ((1 << 32 * int(n)) - 1) // WORD
    if text.startswith("rnd("):
        return rnd(*map(int, text[4:-1].split(",")))
    return int(text, 16)


def parse(text):
    if text[0] == "-":
        return -parse(text[1:])
    for separator, combine in (("+", lambda x, y: x + y), ("-", lambda x, y: x - y)):
        if separator in text:
            head, tail = text.split(separator)
            return combine(parse(head), atom(tail))
    return math.prod(map(atom, text.split("*")))


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


def double(pattern):
    """Of these 64 bits, as comparisons take it: not normal counts as 0."""
    d = struct.unpack("d", struct.pack("Q", pattern))[0]
    return d if sys.float_info.min <= abs(d) < math.inf else 0.0


def pattern(d):
    return "%x" % struct.unpack("Q", struct.pack("d", d))


def order(x, y):
    return (x > y) - (x < y)


def sign(x):
    return order(x, 0)


def limb_rows(a, b, w):
    """Over n limbs, with the carry or the borrow above them."""
    B = 1 << 32 * max((max(a, b).bit_length() + 31) // 32, 1)
    wrapped = lambda x: x % B + B * -(x // B) if x < 0 else x
    return [a + b, wrapped(a - b), a + w, wrapped(a - w), a * w, b + a * w, wrapped(b - a * w),
            sign(a - b)]


def first_one(a, i):
    """Of infinite two's complement: the first 1 at or after bit i; WORD if there is none."""
    rest = a >> i
    return i + (rest & -rest).bit_length() - 1 if rest else WORD


OPERATIONS = {name: f for names, f in {
    "add add_ui bn_add": lambda a, b: [a + b],
    "sub sub_ui bn_sub": lambda a, b: [a - b],
    "ui_sub": lambda a, v: [v - a],
    "mul mul_ui mul_si bn_mul limb_product dft_product": lambda a, b: [a * b],
    "mul_2exp": lambda a, k: [a << k],
    "pow_ui ui_pow_ui": lambda a, e: [a ** e],
    "addmul addmul_ui limb_addmul": lambda r, a, b: [r + a * b],
    "submul submul_ui": lambda r, a, b: [r - a * b],
    "bn_mac": lambda a, b, c: [c + a * b],
    "limb_rows": limb_rows,
    "and": lambda a, b: [a & b],
    "ior": lambda a, b: [a | b],
    "xor": lambda a, b: [a ^ b],
    "set": lambda a: [a],
    "neg": lambda a: [-a],
    "abs": lambda a: [abs(a)],
    "com": lambda a: [~a],
    "compare": lambda a, b: [sign(a - b), sign(abs(a) - abs(b)), sign(a)],
    "compare_word": lambda a, v: [sign(a - v), sign(abs(a) - v)],
    "compare_double": lambda a, p: [order(a, double(p)), order(abs(a), abs(double(p)))],
    "compare_signed": lambda a, v: [sign(a - v)],
    "bn_compare": lambda a, b: [sign(a - b) % 3, sign(a) % 3],
    "fits": lambda a: [int(low <= a <= high) for low, high in (
        *[(-1 << 31, (1 << 31) - 1), (0, WORD)] * 2, (-1 << 15, (1 << 15) - 1), (0, (1 << 16) - 1))],
    "low_word": lambda a: [abs(a) & WORD, (sign(a) * (abs(a) & WORD) + (1 << 31) & WORD) - (1 << 31),
                           (abs(a).bit_length() + 31) // 32],
    "size_in_power_of_two": lambda a, b: [
        max(1, -(-abs(a).bit_length() // (b.bit_length() - 1)))],
    "setbit": lambda a, i: [a | 1 << i],
    "clrbit": lambda a, i: [a & ~(1 << i)],
    "bit": lambda a, i: [a >> i & 1, first_one(~a, i), first_one(a, i)],
    "popcount": lambda a: [WORD if a < 0 else bin(a).count("1")],
    "hamdist": lambda a, b: [WORD if (a < 0) != (b < 0) else bin(a ^ b).count("1")],
    "tdiv bn_div": truncate,
    "fdiv divide_2_by_1": lambda n, d: list(divmod(n, d)),
    "cdiv": lambda n, d: [-(-n // d), n + -n // d * d],
    "tdiv_2exp": lambda n, k: truncate(n, 1 << k),
    "fdiv_2exp": lambda n, k: [n >> k, n & (1 << k) - 1],
    "cdiv_2exp": lambda n, k: [-(-n >> k), n + (-n >> k << k)],
    "div_magnitudes": lambda n, d: list(divmod(abs(n), abs(d))),
    "divide_3_by_2": lambda n, d: [n // d],
    "mod bn_mod": lambda n, d: [n % abs(d)],
    "mod_2exp": lambda n, k: list(divmod(abs(n), 1 << k)),
    "bn_gcd": lambda a, b: [math.gcd(a, b)],
    "bn_modinv": lambda a, m: [pow(a, -1, m) if math.gcd(a, m) == 1 else 0],
    "mont_form": montgomery(lambda n, R, a: a * R % n),
    "mont_mul": montgomery(lambda n, R, a, b: a * b * pow(R, -1, n) % n),
    # The first power is x itself, also where x = n.
    "mont_exp": montgomery(lambda n, R, x, e: x if e == 1 else pow(x * pow(R, -1, n), e, n) * R % n),
}.items() for name in names.split()}


# ---- Cases ---------------------------------------------------------------------------------------

seeds = itertools.count(1)


def fresh(bits):
    """Random numbers, the same in every run."""
    return "rnd(%d,%d)" % (next(seeds), bits)


def shapes(words):
    """Operands of so many words: all ones, one bit, random."""
    return ["ones(%d)" % (32 * words), "bit(%d)" % (32 * words - 1), fresh(32 * words - 7)]


def signed(a, b):
    return [(a, b), (a, "-" + b), ("-" + a, b), ("-" + a, "-" + b)]


def multiples(q, d):
    """q d + d - 1 and its neighbours q d and q d - 1, for q of one atom and d of one or two."""
    if "+" in d:
        return ["%x" % (parse(q) * parse(d) + shift) for shift in (parse(d) - 1, 0)]
    successor = "bit(%d)" % int(q[5:-1]) if q.startswith("ones(") else "%x" % (parse(q) + 1)
    return [successor + "*" + d + "-1", q + "*" + d, q + "*" + d + "-1"]


def chosen_cases():
    # Neighbours in the sequence of Fibonacci keep every quotient at 1; multiples of one number.
    f, g = 1, 1
    for i in range(600):
        f, g = g, f + g
        if i % 37 == 0:
            yield "bn_gcd", "%x" % g, "%x" % f
            yield "bn_modinv", "%x" % f, "%x" % (f + g)
            yield "bn_gcd", "%x" % (g * 0xfffffffb), "%x" % (f * 0xfffffffb)
            yield "bn_modinv", "%x" % (f * 6), "%x" % (g * 6 + f * 6)
    for v, e in (("0", "0"), ("0", "5"), ("2", "40"), ("ffffffff", "7")):
        yield "ui_pow_ui", v, e
        yield "pow_ui", "-" + v, e
    for x in ("7fff", "8000", "ffff", "10000", "7fffffff", "80000000", "ffffffff", "100000000"):
        for y in (x, "-" + x):
            yield "fits", y
            yield "low_word", y
            for op in ("compare_word", "compare_signed", "add_ui", "sub_ui", "ui_sub"):
                yield op, y, "7fffffff"
            yield "compare_signed", y, "-80000000"
            yield "mul_si", y, "-80000000"
            for k in ("e", "f", "10", "1f", "20", "21"):
                for op in ("bit", "setbit", "clrbit"):
                    yield op, y, k
    tiny, largest = 5e-324, sys.float_info.max
    for a, d in (("2", 2.5), ("3", 2.5), ("-2", -2.5), ("-3", -2.5), ("-2", 2.0), ("0", 0.25), ("0", -0.25),
                 ("1", 0.75), ("1", 1.5), ("0", -0.0), ("0", tiny), ("1", tiny), ("5", math.inf), ("-5", math.inf),
                 ("0", math.inf), ("5", math.nan), ("bit(51)", 2**51 + 0.5), ("bit(53)+1", 2.0**53),
                 ("bit(1023)-1", 2.0**1023), ("bit(1023)+1", 2.0**1023), ("ones(1024)", largest)):
        yield "compare_double", a, pattern(d)
    for a in ("1", "2", "bit(52)", "bit(1023)", "ones(53)*bit(971)", "ones(53)*bit(31)", "-ones(53)*bit(11)"):
        yield "compare_double", a, pattern(float(parse(a)))
    for d in (1, 3, 10, 1 << 31, (1 << 31) + 1, 3 << 30, WORD):
        for high in (0, d // 2, d - 1):
            for low in (0, 1, d - 1, d, WORD):
                yield "divide_2_by_1", "%x" % (high << 32 | low), "%x" % d
    for d in ("bit(63)", "bit(63)+ones(32)", "ones(64)", "c000000000000001"):
        for q in ("1", "fffffffe", "ones(32)"):
            for n in multiples(q, d):
                yield "divide_3_by_2", n, d
    # Moduli and residues at which sums carry; logic whose result needs one bit more.
    for words in (1, 2, 3, 8, 16):
        for n in ("ones(%d)" % (32 * words), "bit(%d)+1" % (32 * words - 1)):
            top = "%x" % (parse(n) - 1)
            for a, b in ((top, top), (n, top), (n, n), ("1", "0"), (top, "1")):
                yield "mont_mul", n, a, b
                yield "mont_form", n, a
            for a, e in ((top, "ffff"), (n, "2"), ("3", "0"), (top, "1"), ("3", n)):
                yield "mont_exp", n, a, e
    for n in (1, 2, 8, 9):
        for a, b in (("ones", "ones"), ("ones", "bit"), ("bit", "bit")):
            for x, y in signed("%s(%d)" % (a, 32 * n), "%s(%d)" % (b, 32 * n - 1)):
                for op in ("and", "ior", "xor", "hamdist", "compare", "add", "sub", "bn_compare"):
                    yield op, x, y
    # Equal but for the lowest limb; all ones plus one; a difference that loses all limbs but one.
    for n in (2, 9, 33):
        x = rnd(n, 32 * n)
        yield "sub", "%x" % x, "%x" % (x ^ 1)
        yield "bn_div", "bit(%d)" % (32 * n), "bit(%d)" % (32 * n)
        yield "add", "ones(%d)" % (32 * n), "1"
        yield "sub", "bit(%d)" % (32 * n), "ones(%d)" % (32 * n)
        yield "limb_addmul", "ones(%d)" % (64 * n), "ones(%d)" % (32 * n), "ones(%d)" % (32 * n)
        yield "limb_addmul", "ones(%d)" % (128 * n), "1", "ones(%d)" % (32 * n)


def product_cases():
    # Both sides of the schoolbook limits, odd and even halves on each level of recursion, the sizes
    # at which scratch leaves the stack.
    equal = [1, 2, 3, 4, 8, 15, 16, 17, 18, 19, 31, 32, 33, 34, 35, 63, 64, 65, 66, 67, 127, 128, 129,
             130, 131, 255, 256, 257, 258, 300]
    unequal = [(17, 15), (17, 16), (16, 15), (18, 17), (40, 20), (41, 20), (61, 20), (60, 20),
               (81, 20), (100, 1), (100, 2), (39, 20), (21, 20), (256, 255), (256, 256), (257, 256),
               (300, 17), (200, 99)]
    for n in range(1, 41):
        for w in ("0", "1", "80000000", "ffffffff"):
            yield "limb_rows", fresh(32 * n), fresh(32 * n), w
        yield "limb_rows", "ones(%d)" % (32 * n), "1", "ffffffff"
    lengths = [*range(1, 37), 63, 64, 90]
    for n in lengths:
        for m in lengths:
            if m <= n:
                yield "limb_product", fresh(32 * n), ("ones(%d)" % (32 * m), fresh(32 * m))[n % 2]
    for n, m in [(n, n) for n in equal] + unequal:
        for a, b in zip(shapes(n) + ["ones(%d)" % (32 * n)],
                        shapes(m) + [fresh(32 * m)]):
            yield "limb_product", a, b
            yield "mul", "-" + a, b
        yield "mul", "ones(%d)" % (32 * n), "bit(%d)" % (32 * m - 1)
        # Halves whose sums carry, and whose middle term does.
        half = "%x" % sum(WORD << 32 * i for i in range(m // 2, m))
        if m > 1:
            yield "limb_product", "ones(%d)" % (32 * n), half
            yield "limb_product", "%x" % (1 << 32 * n - 1 | ((1 << 32 * (n // 2)) - 1)), half


def long_operands(n, i):
    """The largest digits of 16 bits, of both signs and of one, all ones, random words."""
    kinds = ["rep(7fff7fff,%d)", "rep(80008000,%d)", "rep(7fff8000,%d)", "rep(ffffffff,%d)"]
    return (kinds[i] if i < 4 else "rnd(9,%d)") % (n if i < 4 else 32 * n)


def long_cases():
    # Both sides of the limit of transforms, lengths other than powers of two, and lengths at which
    # digits of 16 bits are no longer proved for every operand.
    for n in (4095, 4096, 4097, 5000, 8192, 9001, 16384, 20011, 40000):
        for i in range(5):
            yield "mul", long_operands(n, i), long_operands(n, (i + n) % 5)
    yield "mul", long_operands(9001, 0), long_operands(9001, 0)
    for n, m in ((1, 1), (1, 9), (2, 3), (40, 3), (500, 500), (4095, 4095), (4096, 4096), (5000, 5000),
                 (4500, 300), (0, 5)):
        for i in range(5):
            a, b = long_operands(n, i) if n else "0", long_operands(m, (i + 3) % 5)
            yield "dft_product", a, b
            if n == m < 5000:
                yield "limb_product", a, b
    for n, m in ((1000, 500), (2000, 1000), (1100, 600), (8192, 4096), (9000, 300), (12000, 4999),
                 (5000, 4995)):
        for i in range(5):
            yield "tdiv", long_operands(n, i), long_operands(m, (i + 1) % 5)


def short_quotient_cases():
    """Estimates from truncated operands that are too large: by one for q d - 1, as only the exact
    product tells, by two for d = (2^31, 0, ..., ones) and q near the largest; ones by the d just above
    ones / q has a product longer than the numerator."""
    for qn in range(9):
        for dn in (33, 40, 53):
            for bits in (0, 7, 31):
                q, d = "%x" % (parse(fresh(32 * qn + 33)) >> bits), fresh(32 * dn - bits)
                for n in (q + "*" + d, q + "*" + d + "-1"):
                    yield "div_magnitudes", n, d
                ones = "ones(%d)" % (32 * (dn + qn))
                yield "div_magnitudes", ones, "%x" % (parse(ones) // parse(q) + 1)
            d = "bit(%d)+ones(%d)" % (32 * dn - 1, 32 * (dn - qn))
            if qn:
                yield "div_magnitudes", "%x" % ((parse("ones(%d)" % (32 * qn)) - 5) * parse(d) - 1), d


def add_back_cases():
    """A quotient digit that three limbs by two find one too large: for q d - 1 with d = (2^31, 0, ones),
    whose third limb from the top the estimate does not see."""
    for dn in (3, 4, 9, 31, 32, 33, 47, 48, 60):
        d = "bit(%d)+ones(%d)" % (32 * dn - 1, 32 * (dn - 2))
        for q in ("1", "12345678", "80000000", "ffffffff", "ones(64)", "ffffffff00000001"):
            n = "%x" % (parse(q) * parse(d) - 1)
            yield "div_magnitudes", n, d
            yield "bn_div", n, d


def multiply_add_cases():
    """Sums that run off the room of the result, differences that change its sign or need one word more."""
    factors = ("1", "80000000", "ones(32)", "ones(64)")
    for a, b in itertools.product(factors, factors):
        for c in ("0", "1", "ones(32)", "bit(63)", "ones(64)", "bit(95)", "ones(96)"):
            for x, y in ((a, c), (a, "-" + c), ("-" + a, c)):
                yield "bn_mac", x, b, y


DIVISIONS = ("tdiv", "fdiv", "cdiv", "div_magnitudes", "mod")


def division_cases():
    for n, d in (x for pair in (("7", "2"), ("6", "3"), ("2", "7"), ("1", "1")) for x in signed(*pair)):
        for op in DIVISIONS:
            yield op, n, d
    # One limb: 1, powers of two, others, with the top bit set and not.
    word_divisors = ("1", "2", "10000", "80000000", "3", "ffffffff", "80000001", "fffffffe", "a")
    turn = 0
    for words in (1, 2, 3, 9):
        for n in shapes(words) + ["0"]:
            for d in word_divisors:
                turn += 1
                for x, y in signed(n, d)[turn % 2::2]:
                    yield DIVISIONS[turn % 5], x, y
            for k in (0, 1, 8, 31, 32, 33, 64, 32 * words - 1, 32 * words, 32 * words + 40):
                for op in ("tdiv_2exp", "fdiv_2exp", "cdiv_2exp", "mod_2exp"):
                    for sign_of in ("", "-"):
                        yield op, sign_of + n, "%x" % k
    # Every method, on both sides of its limits: sizes of the divisor and of the quotient.
    sizes = [(2, 0), (2, 1), (2, 5), (3, 3), (31, 40), (32, 8), (32, 9), (32, 70), (33, 0), (33, 1),
             (33, 8), (33, 9), (33, 33), (34, 7), (40, 8), (40, 9), (47, 12), (48, 48), (63, 64),
             (64, 64), (65, 65), (64, 71), (64, 72), (64, 73), (66, 141), (127, 300), (128, 128),
             (130, 9), (255, 17), (256, 256), (260, 3)]
    for dn, qn in sizes:
        divisors = shapes(dn) + [fresh(32 * dn), "ones(%d)" % (32 * dn - 31),
                                        "bit(%d)+ones(%d)" % (32 * dn - 1, 16 * dn)]
        quotients = ["ones(%d)" % (32 * qn), fresh(32 * qn + 1), fresh(max(32 * qn - 20, 1))]
        for i, d in enumerate(divisors):
            q = quotients[i % 3] if qn else "1"
            numbers = multiples(q, d) if "+" not in d else []
            numbers += [fresh(32 * (dn + qn)), "ones(%d)" % (32 * (dn + qn))]
            for n in numbers:
                turn += 1
                x, y = signed(n, d)[turn % 4]
                yield DIVISIONS[turn % 5], x, y


# ---- Random cases ----------------------------------------------------------------------------------

class Operands:
    """Operands of random kinds, by the letters of KINDS."""
    def __init__(self, seed):
        self.below = random.Random(seed).randrange
        self.last, self.last_words = "1", 1

    def positive(self, longest):
        """One atom: lengths near the sizes where methods change, now and then the last one again."""
        if self.below(10) == 0 and self.last_words <= longest:
            return self.last
        seams = (1, 1, 2, 8, 9, 16, 17, 32, 33, 40, 41, 64, 65, 128, 129, 256, 257, 512)
        words = seams[self.below(18)] + self.below(3) - 1 if self.below(3) else self.below(longest)
        self.last_words = words = min(max(words, 1), longest)
        bits = 32 * words - self.below(2) * self.below(32)
        self.last = ("rnd(%d,%d)" % (self.below(10**6), bits), "rnd(%d,%d)" % (self.below(10**6), bits),
                     "ones(%d)" % bits, "bit(%d)" % (bits - 1), self.small(32))[self.below(5)]
        return self.last

    def sign(self):
        return "-" if self.below(2) else ""

    def small(self, bits):
        return "%x" % max(self.below(1 << self.below(bits) + 1), 1)

    def divided(self, longest, sign):
        """Dividend and divisor: anything, or near a multiple of the divisor."""
        d = self.positive(longest)
        n = self.positive(longest)
        if self.below(2):
            n += "*" + d + ("", "+1", "-1", "+2")[self.below(4)]
        return self.sign() + n, sign + d

    def residues(self, op):
        """N = 2 h + 1 and residues below."""
        h = self.positive(8 if op == "mont_exp" else 40)
        n = "2*" + h + "+1"
        return [n, h if self.below(4) else n, h if self.below(2) else "1"][:2 + (op != "mont_form")]


KINDS = {
    "z": lambda x, n: x.sign() + x.positive(n) if x.below(12) else "0",
    "y": lambda x, n: x.sign() + x.positive(20),
    "p": lambda x, n: x.positive(n),
    "w": lambda x, n: (x.small(32), x.small(32), "ffffffff", "0")[x.below(4)],
    "s": lambda x, n: x.sign() + x.small(31),
    "k": lambda x, n: x.small(12) if x.below(12) else "0",
    "e": lambda x, n: x.small(5) if x.below(12) else "0",
    "d": lambda x, n: "%x" % (x.below(1 << 12) << 52 | x.below(1 << 52)),
    "b": lambda x, n: ("2", "4", "8", "10", "20")[x.below(5)],
}
OPERANDS = {kinds: names.split() for kinds, names in {
    "z": "set neg abs com fits low_word popcount",
    "zw": "add_ui sub_ui ui_sub mul_ui compare_word",
    "zs": "mul_si compare_signed",
    "zk": "mul_2exp setbit clrbit bit tdiv_2exp fdiv_2exp cdiv_2exp mod_2exp",
    "zd": "compare_double", "zb": "size_in_power_of_two", "we": "ui_pow_ui", "ye": "pow_ui",
    "zzw": "addmul_ui submul_ui", "zzz": "addmul submul bn_mac",
    "ppw": "limb_rows", "ppp": "limb_addmul", "pp": "limb_product dft_product",
}.items()}


def random_case(x, op=None):
    op = op or list(OPERATIONS)[x.below(len(OPERATIONS))]
    longest = (10, 70, 700)[x.below(24) // 11]
    if op in DIVISIONS or op in ("bn_div", "bn_mod"):
        return (op, *x.divided(longest, "" if op == "bn_mod" else x.sign()))
    if op.startswith("divide_"):
        d = 1 << 63 | x.below(1 << 63) if op == "divide_3_by_2" else parse(x.small(32))
        return op, "%x" % (x.below(d << 32)), "%x" % d
    if op == "bn_gcd":
        g = "*" + x.positive(10)
        return op, x.sign() + x.positive(30) + g, x.positive(30) + g
    if op == "bn_modinv":
        a = x.positive(40)
        return op, a, x.positive(10) + "*" + a + "+" + x.positive(1)
    if op.startswith("mont"):
        return (op, *x.residues(op))
    kinds = next((kinds for kinds, names in OPERANDS.items() if op in names), "zz")
    return (op, *(KINDS[kind](x, longest) for kind in kinds))


def answered(case):
    answer = OPERATIONS[case[0]](*map(parse, case[1:]))
    return " ".join(case) + " = " + " ".join(map(digest, answer))


def table():
    chosen = dict.fromkeys([*chosen_cases(), *product_cases(), *long_cases(), *division_cases(),
                            *short_quotient_cases(), *add_back_cases(), *multiply_add_cases()])
    yield from chosen
    # Operations of which little or nothing was chosen.
    operands, names = Operands(1), [case[0] for case in chosen]
    for op in OPERATIONS:
        for _ in range(60 - names.count(op)):
            yield random_case(operands, op)


def main():
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)
    if sys.argv[1:2] == ["--table"]:
        lines = "\n".join(map(answered, table()))
        with open(sys.argv[2], "w") as file:
            file.write(lines + "\n")
    elif sys.argv[1:2] == ["--random"]:
        operands = Operands(int(sys.argv[2]))
        while True:
            print(answered(random_case(operands)))
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()
