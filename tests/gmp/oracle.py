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

if hasattr(sys, "set_int_max_str_digits"):
    sys.set_int_max_str_digits(0)

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


def power_modulo(a, e, m):
    """0^0 = 1, but modulo 1."""
    return [pow(a, e, abs(m))]


def gcdext(a, b):
    """s is the sign of a where |a| is the divisor, else the least cofactor that is not negative."""
    g = math.gcd(a, b)
    if g == abs(a):
        return [g, sign(a), 0]
    s = pow(a // g, -1, abs(b // g)) if abs(b) > g else 0
    return [g, s, (g - s * a) // b]


def invert(a, m):
    m = abs(m)
    return [pow(a, -1, m), 1] if m > 1 and math.gcd(a, m) == 1 else [0, 0]


def kronecker(a, b):
    """By the definition: multiplicative in b, with symbols for -1 and 2; reciprocity for the rest."""
    if b == 0:
        return int(abs(a) == 1)
    s = -1 if a < 0 and b < 0 else 1
    b = abs(b)
    if a % 2 == 0 and b % 2 == 0:
        return 0
    while b % 2 == 0:
        b //= 2
        s = -s if a % 8 in (3, 5) else s
    a %= b
    while a:
        while a % 2 == 0:
            a //= 2
            s = -s if b % 8 in (3, 5) else s
        s = -s if a % 4 == 3 and b % 4 == 3 else s
        a, b = b % a, a
    return s if b == 1 else 0


def floor_root(n, k):
    if n.bit_length() <= k:
        return min(n, 1)
    r = 1 << -(-n.bit_length() // k)
    while True:
        t = ((k - 1) * r + n // r ** (k - 1)) // k
        if t >= r:
            return r
        r = t


def root(n, k):
    if n < 0:
        if k % 2 == 0:
            return [0, 0]
        r = floor_root(-n, k)
        return [-r, 1] if r ** k == -n else [-r - 1, 0]
    r = floor_root(n, k)
    return [r, int(r ** k == n)]


def perfect_power(n):
    return int(abs(n) < 2 and n >= -1 or
               any(root(n, k)[1] for k in range(2, abs(n).bit_length())
                   if all(k % j for j in range(2, math.isqrt(k) + 1))))


def is_prime(n):
    """Miller and Rabin with the bases that decide below 3.3e24 (Sorenson and Webster), and more."""
    if n < 2:
        return False
    bases = [p for p in range(2, 60) if all(p % q for q in range(2, p))]
    if any(n % p == 0 for p in bases):
        return n in bases
    k = (n - 1 & 1 - n).bit_length() - 1
    for y in bases:
        x = pow(y, n - 1 >> k, n)
        if x != 1 and all(pow(x, 1 << i, n) != n - 1 for i in range(k)):
            return False
    return True


def primality(n, reps):
    """2 where division by the primes up to 997 decides, and where nothing else is asked."""
    n = abs(n)
    if n < 997 ** 2 or n % 2 == 0:
        return 2 * is_prime(n)
    if any(n % p == 0 for p in range(3, 1000, 2)):
        return 0
    return 2 if reps < 1 else int(is_prime(n))


def next_prime(n):
    n = max(n, 1) + 1
    while not is_prime(n):
        n += 1
    return n


def binomial(n, k):
    return math.comb(n, k) if n >= 0 else (-1) ** k * math.comb(k - n - 1, k)


def fibonacci(n):
    """F(n), F(n - 1)."""
    a, b = 0, 1
    for bit in bin(n)[2:]:
        a, b = a * (2 * b - a), a * a + b * b
        if bit == "1":
            a, b = b, a + b
    return [a, b - a]


def lucas(n):
    f, before = fibonacci(n)
    return [f + 2 * before, 2 * f - before]


def remove(n, f):
    count = 0
    while n and abs(f) > 1 and n % f == 0:
        n, count = n // f, count + 1
    return [n, count]


def characters(text):
    """A text as one number."""
    return int.from_bytes(text.encode(), "big")


def in_base(x, base):
    if base == 10:
        return str(x)
    digits = []
    rest = abs(x)
    while rest or not digits:
        rest, digit = divmod(rest, base)
        digits.append("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[digit])
    return ("-" if x < 0 else "") + "".join(reversed(digits))


def truncated(x):
    """The double next to x toward zero, infinity if it is too large; the fraction and the exponent."""
    bits = abs(x).bit_length()
    lost = max(bits - 53, 0)
    whole = abs(x) >> lost
    d = math.inf if bits > 1024 else math.ldexp(whole, lost)
    fraction = math.ldexp(whole, lost - bits)
    return [int(pattern(math.copysign(y, sign(x))) if x else "0", 16) for y in (d, fraction)] + [bits]


def rounded(p):
    return round(struct.unpack("d", struct.pack("Q", p))[0])


def words(a, order, size, endian, nails):
    bits = 8 * size - nails
    count = -(-abs(a).bit_length() // bits)
    values = [abs(a) >> bits * i & (1 << bits) - 1 for i in range(count)]
    if order == 1:
        values.reverse()
    image = b"".join(v.to_bytes(size, "little" if endian == -1 else "big") for v in values)
    return [count, int.from_bytes(b"\1" + image, "big")]


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
    "bn_gcd gcd": lambda a, b: [math.gcd(a, b)],
    "gcd_ui": lambda a, v: [math.gcd(a, v), math.gcd(a, v) if math.gcd(a, v) <= WORD else 0],
    "lcm lcm_ui": lambda a, b: [math.lcm(a, b)],
    "gcdext": gcdext,
    "invert": invert,
    "powm powm_mary": power_modulo,
    "powm_exp2": lambda a, e, k: [pow(a, e, 1 << k)],
    "modinv_exp2": lambda q, k: [pow(q, -1, 1 << max(k, 1))],
    "pow_2exp": lambda a, k: [a ** (1 << k)],
    "powm_2exp": lambda a, k, m: [pow(a, 1 << k, abs(m))],
    "kronecker": lambda a, b: [kronecker(a, b)],
    "probab_prime": lambda n, reps: [primality(n, reps)],
    "nextprime": lambda n: [next_prime(n)],
    "root": root,
    "sqrtrem": lambda n: [math.isqrt(n), n - math.isqrt(n) ** 2],
    "perfect": lambda n: [perfect_power(n), int(n >= 0 and math.isqrt(n) ** 2 == n)],
    "fac_ui": lambda n: [math.factorial(n)],
    "bin_ui": lambda n, k: [binomial(n, k)],
    "fib2_ui": fibonacci,
    "lucnum2_ui": lucas,
    "remove": remove,
    "text": lambda a, base: [characters(in_base(a, base))],
    "get_d": truncated,
    "set_d": lambda p: [rounded(p)],
    "words": words,
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
             130, 131, 255, 256, 257, 258, 299, 300, 301, 302, 303, 401, 640, 899]
    unequal = [(17, 15), (17, 16), (16, 15), (18, 17), (40, 20), (41, 20), (61, 20), (60, 20),
               (81, 20), (100, 1), (100, 2), (39, 20), (21, 20), (256, 255), (256, 256), (257, 256),
               (300, 17), (200, 99)]
    for n in [*range(1, 41), 47, 48, 49, 64, 65, 128, 129, 299, 300, 303, 601]:
        for x in shapes(n) + [fresh(32 * n)]:
            yield "mul", x, x
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
    for n in (1040, 1099, 1100, 1300, 2047, 2500, 4095, 4096, 4097, 5000, 8192, 9001, 16384, 20011, 40000):
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
    for n, m in ((1100, 400), (1200, 300), (1201, 299), (6000, 4096), (20000, 3000), (9000, 310)):
        for i in range(5):
            yield "mul", long_operands(n, i), long_operands(m, (i + 2) % 5)
    # Divisors long enough for an inverse, quotients shorter, as long, longer than the divisor.
    for n, m in ((5999, 3000), (6000, 3000), (6001, 3000), (8191, 4095), (12100, 4000), (20000, 5000)):
        for i in range(5):
            yield "tdiv", long_operands(n, i), long_operands(m, (i + 3) % 5)
        yield "tdiv", "ones(%d)" % (32 * n), "bit(%d)" % (32 * m - 1)
        yield "tdiv", "bit(%d)*ones(%d)-1" % (32 * (n - m), 32 * m), "ones(%d)" % (32 * m)
        yield "tdiv", long_operands(n, 4), "bit(%d)+1" % (32 * m - 1)
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


# Strong pseudoprimes to the first bases (Jaeschke, Mathematics of Computation 61, 1993), numbers of
# Carmichael, of which the last is (6k + 1)(12k + 1)(18k + 1) (Chernick), squares of primes.
COMPOSITE = (2047, 1373653, 25326001, 3215031751, 2152302898747, 3474749660383, 341550071728321,
             3825123056546413051, 561, 1105, 1729, 2465, 2821, 6601, 8911, 172081, 9494101,
             (6 * 5 + 1) * (12 * 5 + 1) * (18 * 5 + 1), 991 ** 2, 997 ** 2, 1009 ** 2, 1009 * 1013,
             (2 ** 61 - 1) * (2 ** 89 - 1), 2 ** 67 - 1, 2 ** 64 + 1, 193707721 * 761838257287)
PRIMES_KNOWN = (2, 3, 5, 7, 11, 997, 1009, 65537, 4294967291, 4294967311, 2 ** 61 - 1, 2 ** 89 - 1,
                2 ** 107 - 1, 2 ** 127 - 1, 2 ** 521 - 1, 2 ** 255 - 19, 2 ** 448 - 2 ** 224 - 1,
                10 ** 18 + 9, 2 ** 64 - 59, 2 ** 1279 - 1)


def theory_cases():
    for n in (0, 1, 2, 4, 9, *range(985, 1030, 2), 994003, 994009, 994011, 996001, 1018081, *COMPOSITE,
              *PRIMES_KNOWN):
        # A liar passes for prime in one of four rounds.
        for reps in (0, 25) if n in COMPOSITE else (0, 1, 25):
            yield "probab_prime", "%x" % n, "%x" % reps
        if n < 1 << 130:
            yield "nextprime", "%x" % n
        yield "nextprime", "-%x" % n
    for n in ("bit(31)", "ffffffff", "fffffffa", "fffffffb", "ones(64)", "bit(64)", "bit(200)", "ones(512)"):
        yield "nextprime", n
    for p in (*PRIMES_KNOWN[1:12], 9, 15, 21, 35, 4294967295, 3 ** 40, 45):
        for a in (0, 1, 2, 3, 5, 7, 12, -1, -2, -3, -5, p - 1, 2 * p, p + 2, p * p - 3):
            for b in (p, -p, 2 * p, 8 * p, -4 * p):
                yield "kronecker", "%x" % a, "%x" % b
    for a in (0, 1, -1, 2, -2, 3, 6, 1 << 40):
        for b in (0, 1, -1, 2, -2, 4, 1 << 33):
            yield "kronecker", "%x" % a, "%x" % b
    # Moduli on both sides of 30 limbs and of the longer methods; exponents on both sides of the odd part.
    for words in (1, 2, 3, 16, 29, 30, 31, 32, 64, 119, 120, 121):
        q = parse(fresh(32 * words)) | 1
        e = "%x" % min(parse(fresh(32 * words)), parse(fresh(100)))
        for m in (q, q << 5, q - 1 + (q & 2), (1 << 32 * words) - 1, (1 << 32 * words - 1) + 1, -q):
            for a in (fresh(32 * words - 3), "-" + fresh(32 * words - 2), "%x" % abs(m), "%x" % (abs(m) - 1),
                      "%x" % (3 * q), "0", "1"):
                yield ("powm", "powm_mary")[words % 2], a, e, "%x" % m
        yield "powm", fresh(40), "%x" % (q - 1), "%x" % q
        yield "powm", fresh(40), "%x" % q, "%x" % q
        yield "powm", fresh(40), "%x" % (q + 1), "%x" % q
        yield "powm_mary", fresh(32 * words), "ones(300)", "%x" % q
        for a in (q + 2, -q - 2):
            if math.gcd(a, q) == 1:
                yield "powm", "%x" % a, "-1", "%x" % q
                yield "powm", "%x" % a, "-" + e, "%x" % q
    for m in (1, -1, 2, 3, 6, 8, 96, 1 << 40, 3 << 40, 7):
        for a in (0, 1, 2, 3, -2, 5, 96):
            for e in (0, 1, 2, 3, 8, 33):
                yield "powm", "%x" % a, "%x" % e, "%x" % m
    for bits in (8, 9, 36, 37, 140, 141, 450, 451, 1303, 1304, 3600):
        yield "powm_mary", "3", "ones(%d)" % bits, "bit(64)+d"
        yield "powm_mary", "7", fresh(bits), "bit(64)+d"
    for k in (0, 1, 2, 3, 4, 7, 8, 31, 32, 33, 64, 100, 1000):
        for q in ("1", "3", "ffffffff", fresh(k + 40), "-7"):
            odd = parse(q) | 1
            yield "modinv_exp2", "%x" % odd, "%x" % k
            yield "powm_exp2", "%x" % abs(odd), "%x" % abs(parse(fresh(40))), "%x" % k
            yield "powm_exp2", "%x" % (abs(odd) + 1), "5", "%x" % k
    for k in range(6):
        yield "pow_2exp", "-3", "%x" % k
        yield "powm_2exp", "-" + fresh(100), "%x" % k, "-" + fresh(70)
    yield "powm_2exp", fresh(100), "%x" % 300, "ones(521)"

    # Neighbours of Fibonacci: every quotient is 1; multiples, powers of two, long quotients, zeros.
    f, g = 1, 1
    for i in range(3000):
        f, g = g, f + g
        if i in (30, 45, 46, 47, 90, 92, 93, 94, 300, 2999):
            for x, y in ((f, g), (g * 0xfffffffb, f * 0xfffffffb), (g << 70, f << 40)):
                yield "gcd", "%x" % x, "-%x" % y
                yield "gcdext", "%x" % x, "%x" % y
                yield "gcdext", "-%x" % y, "%x" % x
            yield "invert", "%x" % f, "%x" % g
            yield "invert", "-%x" % f, "%x" % g
    for x, y in (("0", "0"), ("0", "6"), ("6", "0"), ("c", "12"), ("ones(64)", "ones(32)"), ("bit(64)", "bit(33)"),
                 ("1", "1"), ("1", "7"), ("7", "1"), ("2", "4"), ("3", "7"), ("bit(100)", "1"), ("ones(96)", "3")):
        for a, b in signed(x, y):
            for op in ("gcd", "gcdext", "lcm"):
                yield op, a, b
                yield op, b, a
            if y != "0":
                yield "invert", a, b
    for n, m in ((1, 1), (2, 1), (2, 2), (3, 2), (3, 3), (8, 8), (9, 5), (20, 20), (33, 30), (70, 70), (100, 40),
                 (100, 99), (150, 150), (400, 400)):
        for divisor in ("1", fresh(50), fresh(32 * m // 2 + 1)):
            a, b = fresh(32 * n) + "*" + divisor, fresh(32 * m) + "*" + divisor
            for x, y in signed(a, b)[n % 4::3]:
                yield "gcd", x, y
                yield "gcdext", x, y
                yield "gcdext", y, x
                yield "invert", x, y
                yield "kronecker", x, y
                yield "lcm", x, y
    for v in ("0", "1", "2", "6", "ffffffff"):
        for a in ("0", "c", "-ones(32)", "bit(64)", fresh(333), "6*" + fresh(200)):
            yield "gcd_ui", a, v
            yield "lcm_ui", a, v

    # Roots: powers and their neighbours, of both signs; sizes at which the lowest bits are searched.
    for k in (1, 2, 3, 4, 5, 7, 8, 31, 33, 64, 100, 1000):
        for r in (1, 2, 3, 15, 16, 17, 0xffff, 0x10000, 0xffffffff, parse(fresh(67)), parse(fresh(300))):
            if r.bit_length() * k > 40000:
                continue
            for n in (r ** k - 1, r ** k, r ** k + 1):
                yield "root", "%x" % n, "%x" % k
                if n and k < 100:
                    yield "root", "-%x" % n, "%x" % k
                if k < 6 and n.bit_length() < 400:
                    yield "perfect", "%x" % n
                    yield "perfect", "%x" % -n
    for n in (0, 1, 2, 3, 4, 10, 12, 63, 64, 1 << 62, (1 << 64) - 1, 1 << 63):
        yield "sqrtrem", "%x" % n
        yield "perfect", "%x" % n
        yield "perfect", "%x" % -n
        for k in (1, 2, 3, 5, 200, WORD):
            yield "root", "%x" % n, "%x" % k
    for bits in (*range(60, 70), *range(126, 132), 191, 192, 193, 255, 256, 300, 1000, 2047, 2048, 5000, 9999, 32000):
        for n in ("ones(%d)" % bits, "bit(%d)" % bits, fresh(bits)):
            yield "sqrtrem", n
        r = "%x" % parse(fresh(bits // 2))
        for n in (r + "*" + r, r + "*" + r + "-1", r + "*" + r + "+1"):
            yield "sqrtrem", n
            yield "root", n, "2"
            if n == r + "*" + r or bits < 400:
                yield "perfect", n
    for bits in (1000, 5000, 20000):
        for k in (3, 5, 17, 300):
            yield "root", fresh(bits), "%x" % k
    for n in (*range(40), 66, 67, 100, 199, 200, 201, 257, 1000, 3001):
        yield "fac_ui", "%x" % n
    for n in (*range(60), 92, 93, 94, 186, 187, 1000, 4096, 65535, 100001):
        yield "fib2_ui", "%x" % n
        yield "lucnum2_ui", "%x" % n
    for n in (0, 1, 2, 3, 5, 10, 40, 67, 300, 1000, WORD, 1 << 33, 1 << 100):
        for k in (0, 1, 2, 3, 5, 33, 66, 150, n - 1, n, n + 1):
            if 0 <= k <= WORD:
                if min(k, abs(n - k)) < 400:
                    yield "bin_ui", "%x" % n, "%x" % k
                if k < 400:
                    yield "bin_ui", "-%x" % n, "%x" % k
    for n, f in ((24, 2), (-24, 2), (24, -2), (-24, -2), (24, 5), (0, 3), (5, 1), (5, -1), (3 ** 77, 3), (3 ** 77, 9),
                 (3 ** 77, -3), (1 << 99, 2), (1 << 99, 8), (6 ** 50, 6), (6 ** 50, 12), (7, 7), (49, 7), (48, 49),
                 (parse("ones(100)") ** 37 * 5, parse("ones(100)")), (10 ** 300, 10), (10 ** 255, 10)):
        yield "remove", "%x" % n, "%x" % f


def conversion_cases():
    for base in range(2, 37):
        for k in (1, 5, 6, 7, 13, 14, 40):
            for n in (base ** k - 1, base ** k, base ** k + 1):
                yield "text", "%x" % (n if k % 2 else -n), "%x" % base
        yield "text", fresh(700), "%x" % base
        yield "text", "0", "%x" % base
        yield "text", "-" + fresh(3000), "%x" % base
    # Both sides of the lengths that are cut into halves; zeros in the lower half.
    for base in (3, 10, 36):
        for digits in (144, 180, 181, 189, 190, 360, 361, 945, 946, 954, 1890, 1891, 5000, 20000):
            for n in (base ** digits - 1, base ** digits, base ** digits + base ** (digits // 2)):
                if digits < 3000 or base == 10:
                    yield "text", "%x" % n, "%x" % base
    yield "text", fresh(100000), "a"
    yield "text", fresh(330000), "a"
    yield "text", "%x" % (10 ** 100000 - 1), "a"
    for n in (0, 1, 3, 2 ** 53 - 1, 2 ** 53, 2 ** 53 + 1, 2 ** 54 - 1, 2 ** 64 - 1, 2 ** 96 - 1, 2 ** 1023, 2 ** 1024 - 1,
              2 ** 1024, 2 ** 1030, 2 ** 2000, 255, 1 << 31, 1 << 32, (1 << 85) - (1 << 30), (1 << 84) + (1 << 31)):
        yield "get_d", "%x" % n
        yield "get_d", "%x" % -n
    for bits in range(50, 140, 3):
        yield "get_d", fresh(bits)
    for d in (0.0, -0.0, 5e-324, 2.3e-308, 0.25, 0.49999999999999994, 0.5, -0.5, 0.5000000000000001, 0.75, -0.75, 1.0,
              1.5, 2.5, -2.5, 3.5, 2.75, 0.9999999999999999, 4294967295.0, 4294967295.5, 4294967294.5,
              2.0 ** 51 + 0.5, 2.0 ** 52 - 0.5, 2.0 ** 52 + 1, 2.0 ** 53, 2.0 ** 63, 2.0 ** 84, 1.5 * 2 ** 95, 1e300,
              sys.float_info.max, -sys.float_info.max, -1e22):
        yield "set_d", pattern(d)
    for a in ("0", "1", "-1", "ab", "-ones(32)", "bit(32)", fresh(100), "ones(255)", "bit(255)", fresh(1000)):
        for size, nails in ((1, 0), (1, 4), (1, 7), (2, 0), (2, 3), (2, 9), (3, 5), (4, 0), (4, 1), (4, 31), (8, 0),
                            (8, 17), (16, 100), (5, 8), (40, 0), (40, 319)):
            for order in ("1", "-1"):
                for endian in ("1", "0", "-1"):
                    if parse(a).bit_length() // (8 * size - nails) < 300:
                        yield "words", a, order, "%x" % size, endian, "%x" % nails


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
    "f": lambda x, n: "%x" % (x.below(2) << 63 | (1000 + x.below(1047)) << 52 | x.below(1 << 52)),
    "b": lambda x, n: ("2", "4", "8", "10", "20")[x.below(5)],
    "B": lambda x, n: "%x" % (2 + x.below(35)),
    "r": lambda x, n: "%x" % (1 + x.below(9)),
    "n": lambda x, n: "%x" % x.below(1 << x.below(12)),
    "i": lambda x, n: "%x" % x.below(300),
    "I": lambda x, n: "%x" % (30 * x.below(2)),
    "j": lambda x, n: "%x" % x.below(6),
    "o": lambda x, n: x.sign() + x.positive(40),
    "q": lambda x, n: "2*" + x.positive(20) + "+1",
    "x": lambda x, n: x.positive(4),
}
OPERANDS = {kinds: names.split() for kinds, names in {
    "z": "set neg abs com fits low_word popcount",
    "zw": "add_ui sub_ui ui_sub mul_ui compare_word",
    "zs": "mul_si compare_signed",
    "zk": "mul_2exp setbit clrbit bit tdiv_2exp fdiv_2exp cdiv_2exp mod_2exp",
    "zd": "compare_double", "zb": "size_in_power_of_two", "we": "ui_pow_ui", "ye": "pow_ui",
    "zzw": "addmul_ui submul_ui", "zzz": "addmul submul bn_mac",
    "ppw": "limb_rows", "ppp": "limb_addmul", "pp": "limb_product dft_product",
    "zw ": "gcd_ui lcm_ui", "yxo": "powm powm_mary", "pxi": "powm_exp2", "qi": "modinv_exp2",
    "yj": "pow_2exp", "yio": "powm_2exp", "zr": "root", "p": "sqrtrem", "y": "perfect get_d",
    "n": "fac_ui fib2_ui lucnum2_ui", "yn": "bin_ui", "zB": "text", "f": "set_d", "sI": "probab_prime",
    "s": "nextprime",
}.items()}


def random_case(x, op=None):
    op = op or list(OPERATIONS)[x.below(len(OPERATIONS))]
    longest = (10, 70, 700)[x.below(24) // 11]
    if op in DIVISIONS or op in ("bn_div", "bn_mod"):
        return (op, *x.divided(longest, "" if op == "bn_mod" else x.sign()))
    if op.startswith("divide_"):
        d = 1 << 63 | x.below(1 << 63) if op == "divide_3_by_2" else parse(x.small(32))
        return op, "%x" % (x.below(d << 32)), "%x" % d
    if op in ("bn_gcd", "gcd", "gcdext", "lcm", "kronecker", "invert"):
        g = "*" + x.positive(10) if x.below(4) else ""
        return op, x.sign() + x.positive(30) + g, (x.sign() if op != "bn_gcd" else "") + x.positive(30) + g
    if op == "words":
        size = 1 + x.below(9)
        return op, KINDS["z"](x, 70), ("1", "-1")[x.below(2)], "%x" % size, ("1", "0", "-1")[x.below(3)], \
            "%x" % x.below(8 * size)
    if op == "remove":
        return op, x.sign() + x.positive(10) + "*%x" % x.below(50) ** x.below(40), "%x" % (2 + x.below(48))
    if op == "bn_modinv":
        a = x.positive(40)
        return op, a, x.positive(10) + "*" + a + "+" + x.positive(1)
    if op.startswith("mont"):
        return (op, *x.residues(op))
    kinds = next((kinds for kinds, names in OPERANDS.items() if op in names), "zz")
    return (op, *(KINDS[kind](x, longest) for kind in kinds.strip()))


def answered(case):
    answer = OPERATIONS[case[0]](*map(parse, case[1:]))
    return " ".join(case) + " = " + " ".join(map(digest, answer))


def table():
    chosen = dict.fromkeys([*chosen_cases(), *product_cases(), *long_cases(), *division_cases(),
                            *short_quotient_cases(), *add_back_cases(), *multiply_add_cases(),
                            *theory_cases(), *conversion_cases()])
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
