#!/usr/bin/env python3
"""Runs the vor program as a user does. VOR is the program, VOR_LIBRARY the library."""
import csv
import math
import os
import pty
import re
import shutil
import struct
import subprocess
import tempfile
import unittest
import wave
import xml.etree.ElementTree as xml
from pathlib import Path

VOR = os.environ["VOR"]
LIBRARY = os.environ["VOR_LIBRARY"]
SETTINGS = ("VOR_", "OMP_NUM_THREADS", "omp_num_threads")


class Case(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.dir = Path(scratch.name)

    def run_vor(self, *arguments, status=0, **environment):
        clean = {k: v for k, v in os.environ.items() if not k.startswith(SETTINGS)}
        done = subprocess.run([VOR, *map(str, arguments)], text=True, capture_output=True,
                              cwd=self.dir, env=clean | environment)
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done

    def file(self, name, text):
        path = self.dir / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(text.encode())
        return path

    def svg_text(self, path):
        return " ".join(e.text or "" for e in xml.parse(path).iter() if e.tag.endswith("text")
                        or e.tag.endswith("tspan") or e.tag.endswith("title"))

    def fails(self, pattern, *arguments):
        """One line on stderr that fits the pattern, and exit status 1."""
        error = self.run_vor(*arguments, status=1).stderr
        self.assertRegex(error, r"\A" + pattern + r"\n\Z")

    def rejects(self, command, cases):
        """Files with these contents fail with these messages behind their names."""
        for name, content, message in cases:
            with self.subTest(name):
                path = self.file(name, content)
                self.fails(re.escape(f"vor: {path}") + message, command, path)
        self.fails("vor: missing: No such file or directory", command, "missing")
        self.fails(r"vor: \.: is a directory", command, ".")


class Info(Case):
    def info(self, **environment):
        lines = self.run_vor("info", **environment).stdout.splitlines()
        self.assertRegex(lines[0], r"Numeric Library Version \d+\.\d+\.\d+ .*32-bit")
        return {line[:16].strip(): line[17:] for line in lines[1:]}

    def test_defaults(self):
        info = self.info()
        model = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text())
        if model:
            self.assertEqual(info["processor"], model.group(1).strip())
        self.assertRegex(info["cache class"], r"class (-1|[0-5])")
        self.assertRegex(info["frequency"], r"^[1-9]\d* MHz")
        self.assertEqual(info["configuration"], "no file")
        self.assertIn("PATH", info["looked for"])
        self.assertEqual(info["argument checks"], "on")

    def test_threads(self):
        for environment, decision in (
                ({}, "serial: neither VOR_SERIAL nor OMP_NUM_THREADS is set"),
                ({"OMP_NUM_THREADS": "3"}, "parallel, up to 3: OMP_NUM_THREADS is 3"),
                ({"omp_num_threads": "3"}, r"parallel, up to \d+: omp_num_threads is 3"),
                ({"OMP_NUM_THREADS": "", "omp_num_threads": "3"}, "serial: neither .*"),
                ({"VOR_SERIAL": "NO"}, r"parallel, up to \d+: VOR_SERIAL is NO"),
                ({"VOR_SERIAL": "yes", "OMP_NUM_THREADS": "3"}, "serial: VOR_SERIAL is yes")):
            with self.subTest(environment):
                self.assertRegex(self.info(**environment)["threads"], "^" + decision + "$")

    def test_configuration(self):
        text = "Vor_Input_Check = OFF\r\nvor_serial=no\r\n"
        here = self.file("vor.cfg", text)
        folder = self.file("folder/vor.cfg", text)
        path = os.environ["PATH"]
        for environment, found in (({}, "vor.cfg"),
                                   ({"VOR_CFG_FILE": str(here)}, str(here)),
                                   ({"VOR_CFG_FILE": str(folder.parent)}, str(folder)),
                                   ({"VOR_CFG_FILE": "missing"}, "./vor.cfg"),
                                   ({"VOR_CFG_FILE": "missing", "PATH": f"{folder.parent}:{path}"},
                                    str(folder))):
            with self.subTest(environment):
                info = self.info(**environment)
                self.assertEqual(info["configuration"], found)
                self.assertEqual(info["argument checks"], "off")
                self.assertEqual(info["vor_serial"], "no")
                self.assertRegex(info["threads"], "^parallel.*set by the configuration file")


    def test_lines_without_effect(self):
        file = self.file("vor.cfg", "vor_serial=yes\nvor_serial = no # never\nvor_threads=3\n\n")
        out = self.run_vor("info").stdout
        lines = [line[17:] for line in out.splitlines() if line.startswith("  without effect")]
        self.assertEqual(lines, ["line 2: vor_serial = no # never", "line 3: vor_threads=3"])
        self.assertRegex(self.run_vor("--version").stdout, r"^.*Numeric Library Version \d")
        file.unlink()

    @unittest.skipUnless(Path("/dev/full").exists(), "no /dev/full")
    def test_full_disk(self):
        with open("/dev/full", "w") as full:
            done = subprocess.run([VOR, "info"], stdout=full, stderr=subprocess.PIPE, text=True)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"^vor: standard output: No space left on device\n$")


class Tour(Case):
    def test_published_results(self):
        out = self.run_vor("tour", "--output", "pictures").stdout
        rows = re.findall(r"^ +\d +([\d.]+) +[\d.]+% +([\d.]+)  agrees$", out, re.M)
        self.assertEqual([r[1] for r in rows], ["4.228", "0.243", "0.078", "0.024"])
        self.assertEqual(["%.3f" % float(r[0]) for r in rows], [r[1] for r in rows])
        pictures = [("iris", ("first component (92.5% of the variance)", "setosa", "versicolor",
                              "second component (5.3%", "virginica")),
                    ("sunspots", ("period in years",)), ("beam", ("textbook",)),
                    ("plate-residual", ("steps",))]
        lines = [r"309 yearly numbers of sunspots, from 1700 to 2008$",
                 r"strongest period 11\.04 years, published about 11\.1: agrees$",
                 r"pitch found 125\.0 Hz, made with 125 Hz: agrees$",
                 r"the tip sinks by (\d+\.\d+) mm; P L\^3 / \(3 E I\) is \1 mm: agrees$",
                 r"160000 equations, 798400 entries: conjugate gradients",
                 r"temperature near the centre (0\.25\d+), by the series \1; .*: agrees$",
                 r"(sum (1\.0|0\.9)\d+, .*the C library comes first: agrees$|left out: .*packages$)",
                 r"e = 2\.71828182845904523536",
                 r"decimals 99951 to 100000: (\d{50}), known as \1: agrees$",
                 r".*two primes: a product of 2656056 bits",
                 r"its remainders by 4 primes.*: agrees$"]
        for line in lines:
            self.assertRegex(out, "(?m)^" + line)
        for name, words in pictures:
            text = self.svg_text(self.dir / "pictures" / f"{name}.svg")
            for word in words:
                self.assertIn(word, text)

    def test_own_table(self):
        # Two uncorrelated columns, turned by the angle with cosine 0.6: variances 50/3 and 2/3, then
        # a column that never varies.
        turned = [(0.6 * u - 0.8 * v, 0.8 * u + 0.6 * v) for u, v in
                  ((5, 0), (-5, 0), (0, 1), (0, -1))]
        for name, heading, label, end in (("plain", "", "", "\n"), ("dos", "a,b,c", "", "\r\n"),
                                          ("labels", '"a, b",c,d,kind', ',"x, y"', "\n")):
            with self.subTest(name):
                lines = [heading] + [f"{x!r}, {y!r},7{label}" for x, y in turned] + ["", ""]
                table = self.file(name + ".csv", end.join(lines))
                out = self.run_vor("tour", table, "--output", self.dir / name).stdout
                rows = re.findall(r"^ +\d +(\S+) +(\S+)%$", out, re.M)
                for (variance, share), expected in zip(rows, (50 / 3, 2 / 3, 0), strict=True):
                    self.assertAlmostEqual(float(variance), expected, delta=1e-3)
                    self.assertAlmostEqual(float(share), expected / 52 * 300, delta=0.01)
                self.assertRegex(out, r"(?m)^  \S.* 0\.6000 +-?0\.8000 ")
                self.assertNotIn("published", out)
                self.svg_text(self.dir / name / "components.svg")

    def test_bad_input(self):
        self.rejects("tour", (
            ("empty", "", ":1: the file is empty"),
            ("heading", "a,b\n", ":1: no row of numbers"),
            ("ragged", "a,b\n1,2\n\n3\n", ":4: a row of 1 cells where 2 are expected"),
            ("long", "1,2,x\n3,4,5,y\n", ":2: a row of 4 cells where 3 are expected"),
            ("word", "1,2\n3,four\n", ":2: 'four' is not a finite number"),
            ("first", "1,b,3\n1,2,3\n", ":1: 'b' is not a finite number"),
            ("gap", "1,2\n,4\n", ":2: '' is not a finite number"),
            ("half", "1,2\n3,4x\n", ":2: '4x' is not a finite number"),
            ("signs", "1,2\n3,+-4\n", r":2: '\+-4' is not a finite number"),
            ("nan", "1,2\nnan,4\n", ":2: 'nan' is not a finite number"),
            ("huge", "1,2\n3,1e999\n", ":2: '1e999' is not a finite number"),
            ("one", "1,2\n", ":1: fewer than two rows of numbers"),
            ("narrow", "1\n2\n", ":1: fewer than two columns of numbers"),
            ("flat", "1,2\n1,2\n", ":1: the numbers of all rows are the same")))
        file = self.file("file", "")
        self.fails(f"vor: {file}: cannot be made a directory", "tour", "--output", file)
        # A failed tour leaves no folders, and what is no text is not shown.
        binary = self.dir / "binary"
        binary.write_bytes(b"1,2\n3,\x1b[31m" + b"\x00" * 100000 + b"\n")
        self.fails(f"vor: {binary}:2: '\\?\\[31m\\?{{30,40}}\\.\\.\\.' is not a finite number", "tour",
                   binary, "--output", "deep/folder")
        self.assertFalse((self.dir / "deep").exists())

    def test_large_tables(self):
        """Many columns, more columns than rows, components of one size: the method settles."""
        for rows, columns in ((120, 120), (10, 400), (400, 60)):
            with self.subTest(rows=rows, columns=columns):
                state, lines = 1, []
                for _ in range(rows):
                    row = []
                    for _ in range(columns):
                        state = (state * 1664525 + 1013904223) % 2**32
                        row.append("%.4f" % (state / 2**32))
                    lines.append(",".join(row))
                out = self.run_vor("tour", self.file("t.csv", "\n".join(lines))).stdout
                self.assertRegex(out, r"(?m)^\d+ more components hold [\d.]+%$")
                self.assertRegex(out, r"(?m)^  and \d+ more columns$")
        equal = "\n".join(",".join("1" if i == j else "0" for j in range(40)) for i in range(40))
        self.run_vor("tour", self.file("t.csv", equal))

    def test_without_gnuplot(self):
        out = self.run_vor("tour", PATH=str(self.dir)).stdout
        self.assertIn("picture: none", out)
        self.assertEqual(list(self.dir.glob("**/*.svg")), [])


class Spectrum(Case):
    RATE = 44100

    def wav(self, name, channels):
        path = self.dir / name
        with wave.open(str(path), "wb") as out:
            out.setnchannels(len(channels))
            out.setsampwidth(2)
            out.setframerate(self.RATE)
            frames = [v for frame in zip(*channels) for v in frame]
            out.writeframes(struct.pack("<%dh" % len(frames), *frames))
        return path

    def tone(self, seconds, *frequencies):
        return [round(sum(8000 / (i + 1) * math.sin(2 * math.pi * f * t / self.RATE)
                          for i, f in enumerate(frequencies)))
                for t in range(int(seconds * self.RATE))]

    def test_tones_and_delays(self):
        picture = self.dir / "tones.png"
        out = self.run_vor("spectrum", self.wav("a.wav", [self.tone(1, 440, 3000)]), "--output",
                           picture).stdout
        # Windows of 20 ms tell frequencies 50 Hz apart.
        self.assertRegex(out, r"strongest frequencies, to 25 Hz: 450 Hz \(0\.0 dB\), 3000 Hz")
        out = self.run_vor("spectrum", self.wav("pure.wav", [self.tone(1, 440)])).stdout
        self.assertRegex(out, r"the period of a tone of 44\d Hz")
        out = self.run_vor("spectrum", self.wav("flat.wav", [[12000] * self.RATE])).stdout
        self.assertIn("no frequency stands out", out)
        long = self.dir / "long.png" # 30 s are 12,000 windows
        self.run_vor("spectrum", self.wav("long.wav", [self.tone(1, 440) * 30]), "--output", long)
        width = struct.unpack(">I", long.read_bytes()[16:20])[0]
        self.assertLess(width, 2200)
        self.assertEqual(picture.read_bytes()[:8], b"\x89PNG\r\n\x1a\n")
        noise = [((t * t * 7919) % 10007) - 5003 for t in range(self.RATE // 4)]
        late = [0] * 441 + noise[:-441]
        out = self.run_vor("spectrum", self.wav("b.wav", [noise, late])).stdout
        self.assertRegex(out, r"the channels are most alike with a delay of -?10\.00 ms")
        out = self.run_vor("spectrum", self.wav("c.wav", [[0] * 2000])).stdout
        self.assertIn("silence", out)

    def test_bad_input(self):
        good = self.wav("good.wav", [self.tone(0.1, 440)]).read_bytes()
        three = self.wav("three.wav", [self.tone(0.1, 440)] * 3).read_bytes()
        bytes_alone = good[:32] + b"\1\0\x08\0" + good[36:]
        for name, content, message in (
                ("cut", good[:2000], "ends before its last sample"),
                ("bytes", bytes_alone, "samples are not 16-bit PCM"),
                ("three", three, "neither mono nor stereo"),
                ("text", b"words", "no WAV file.*")):
            path = self.dir / name
            path.write_bytes(content)
            self.fails(f"vor: {path}: {message}", "spectrum", path)
        self.fails(r"vor: missing: no WAV file.*", "spectrum", "missing")
        self.fails(r"vor: the recording is shorter than one window.*", "spectrum",
                   self.wav("short.wav", [[1, 2, 3]]))


class Solve(Case):
    HEAD = "%%MatrixMarket matrix "
    LU = "LU with partial pivoting"
    CHOLESKY = "Cholesky"

    def solution(self, out):
        return [float(line) for line in re.findall(r"(?m)^[-+.\de]+$", out)]

    def test_small_systems(self):
        ones = [1, 1]
        for name, text, right_side, expected, method in (
                ("general", "coordinate real general\n% two\n\n2 2 3\n2 1 4\n1 2 +2\n2 2 -1\n", None,
                 ones, self.LU),
                ("symmetric", "Coordinate Real SYMMETRIC\n2 2 3\n1 1 4\n2 1 1\n2 2 3\n", (1, 8),
                 [-5 / 11, 31 / 11], self.CHOLESKY),
                ("indefinite", "coordinate real symmetric\n2 2 2\n2 1 1\n2 2 3\n", (1, 5), [2, 1],
                 self.LU),
                ("array", "array integer general\n2 2\n1\n3\n2\n4\n", (5, 11), [1, 2], self.LU),
                ("triangle", "array real symmetric\r\n2 2\r\n4\r\n1\r\n3\r\n", (5, 4), ones,
                 self.CHOLESKY),
                ("twice", "coordinate real general\n2 2 3\n1 1 1\n1 1 1\n2 2 1\n", (2, 3), [1, 3],
                 self.CHOLESKY)):
            with self.subTest(name):
                matrix = self.file(name + ".mtx", self.HEAD + text)
                options = ["--print"]
                if right_side:
                    options += ["--rhs", self.file("b.mtx", self.HEAD +
                                "array real general\n2 1\n%g\n%g\n" % right_side)]
                out = self.run_vor("solve", matrix, *options).stdout
                self.assertIn(method, out)
                self.assertEqual("all ones" in out, right_side is None)
                for x, y in zip(self.solution(out), expected, strict=True):
                    self.assertAlmostEqual(x, y, delta=1e-14)

    def test_larger_systems(self):
        """Orders of every remainder of the halving, rows to exchange in every column."""
        for n in (1, 7, 150):
            for symmetric in (True, False):
                with self.subTest(n=n, symmetric=symmetric):
                    entries = [(i + 1, j + 1, (i * 7 + j * 13) * (i + j + 3) % 31 / 31 - 0.5)
                               for i in range(n) for j in range(i + 1 if symmetric else n)]
                    if symmetric:
                        entries = [(i, j, v + n * (i == j)) for i, j, v in entries]
                    else: # heavy elements on the other diagonal
                        entries = [(i, j, v + n * (i + j == n + 1)) for i, j, v in entries]
                    kind = "symmetric" if symmetric else "general"
                    text = f"{self.HEAD}coordinate real {kind}\n{n} {n} {len(entries)}\n" + "".join(
                        "%d %d %r\n" % e for e in entries)
                    out = self.run_vor("solve", self.file("a.mtx", text), "--print").stdout
                    self.assertIn(self.CHOLESKY if symmetric or n == 1 else self.LU, out)
                    self.assertLess(float(re.search(r"residual (\S+)", out)[1]), 16)
                    for x in self.solution(out):
                        self.assertAlmostEqual(x, 1, delta=1e-11)

    def grid(self, side, skew=0.0):
        """The 5-point equation, with a wind of the given strength."""
        entries = []
        for i in range(side * side):
            for j, inside in ((i - side, i >= side), (i - 1, i % side > 0), (i, True),
                              (i + 1, i % side < side - 1), (i + side, i < side * side - side)):
                if inside and (skew or j <= i):
                    entries.append("%d %d %r" % (i + 1, j + 1, 4 if i == j else
                                                 -1 - skew if j < i else -1 + skew))
        kind = "general" if skew else "symmetric"
        return self.HEAD + f"coordinate real {kind}\n{side**2} {side**2} {len(entries)}\n" + "\n".join(
            entries) + "\n"

    def test_iterations(self):
        for name, text, options, method in (
                ("symmetric", self.grid(20), ["--sparse"], "conjugate gradients"),
                ("wind", self.grid(20, 0.3), ["--sparse"], "BiCGStab"),
                ("large", self.grid(46), [], "conjugate gradients"),
                ("indefinite", self.HEAD + "coordinate real symmetric\n2 2 2\n2 1 1\n2 2 3\n",
                 ["--sparse"], "BiCGStab")):
            with self.subTest(name):
                out = self.run_vor("solve", self.file("a.mtx", text), "--print", *options).stdout
                self.assertIn(method, out)
                self.assertLess(float(re.search(r"residual (\S+) of", out)[1]), 2e-10)
                for x in self.solution(out):
                    self.assertAlmostEqual(x, 1, delta=1e-7)
        matrix = self.file("a.mtx", self.grid(30))
        self.run_vor("solve", matrix, "--sparse", "--plot", "fall.svg")
        self.assertIn("steps", self.svg_text(self.dir / "fall.svg"))
        done = self.run_vor("solve", matrix, "--sparse", "--steps", "3", status=1)
        self.assertRegex(done.stderr, r"the iteration does not converge: residual \S+ after 3 steps\n$")
        self.fails(r"vor: .*a\.mtx: the right side is zero: .*", "solve", matrix, "--sparse", "--rhs",
                   self.file("zero", self.HEAD + "array real general\n900 1\n" + "0\n" * 900))

    def test_bad_input(self):
        real, array = "coordinate real general\n", "array real general\n"
        self.rejects("solve", [("empty", "", ":1: not the header .*")] + [
            (name, self.HEAD + text, message) for name, text, message in (
                ("field", "coordinate pattern general\n", ":1: 'pattern' where real or .*"),
                ("form", "sparse real general\n", ":1: 'sparse' where coordinate or array .*"),
                ("kind", "array real hermitian\n", ":1: 'hermitian' where symmetric or general .*"),
                ("words", "array real\n", ":1: not the header .*"),
                ("no-size", real + "% only words\n", ":2: the file ends before the size line"),
                ("size", real + "2 2\n", ":2: 2 words where the size line has 3"),
                ("zero", array + "0 0\n", ":2: '0' is not an integer from 1 on"),
                ("vast", array + "100000 100000\n", ":2: the matrix is too large to be dense"),
                ("oblong", "array real symmetric\n2 3\n", ":2: .* symmetric .* not square"),
                ("short", real + "2 2 3\n1 1 1\n2 2 1\n", ":4: the file ends before entry 3 of 3"),
                ("short-array", array + "2 2\n1\n", ":3: the file ends before entry 2 of 4"),
                ("long", array + "1 1\n1\n1\n", ":4: text after the last entry"),
                ("row", real + "2 2 1\n3 1 1\n", ":3: index 3 is out of range: at most 2"),
                ("column", real + "2 2 1\n1 0 1\n", ":3: '0' is not an integer from 1 on"),
                ("upper", "coordinate real symmetric\n2 2 1\n1 2 1\n",
                 ":3: an entry above the diagonal of a symmetric matrix"),
                ("word", real + "2 2 1\n\n1 1 one\n", ":4: 'one' is not a finite number"),
                ("nan", array + "1 1\nnan\n", ":3: 'nan' is not a finite number"),
                ("half", real + "2 2 1\n1 1.5 1\n", r":3: '1\.5' is not an integer from 1 on"),
                ("narrow", array + "1 2\n1\n2\n", ": 1 by 2 is not square"),
                ("null", array + "1 1\n0\n", ": singular: column 1 depends .*"),
                ("rank", array + "3 3\n1\n4\n7\n2\n5\n8\n3\n6\n9\n",
                 ": singular: column 3 depends on those before it"))])
        one = self.file("one", self.HEAD + array + "1 1\n2\n")
        two = self.file("two", self.HEAD + array + "2 1\n2\n2\n")
        self.fails(r"vor: .*two: 2 by 1 where 1 by 1 is expected", "solve", one, "--rhs", two)
        vast = self.file("vast", self.HEAD + array + "1 1\n1e308\n")
        side = self.file("side", self.HEAD + array + "1 1\n1e-300\n")
        self.fails(r"vor: .*side: the solution leaves the range of double precision", "solve", side,
                   "--rhs", vast)
        self.run_vor("solve", status=2)


class Bench(Case):
    QUICK = ("--rounds", "3", "--seconds", "0.01", "--filter", "^lsame$")

    def test_list(self):
        lines = self.run_vor("bench", "--list").stdout.splitlines()
        names = [re.split(r"  +", line)[0] for line in lines]
        self.assertGreater(len(names), 0)
        self.assertEqual(len(names), len(set(names)), "two cases of one name")
        filtered = self.run_vor("bench", "--list", "--filter", "^lsame$").stdout.splitlines()
        self.assertEqual(filtered, [line for line in lines if line.startswith("lsame ")])

    def test_measurement(self):
        other = self.dir / "other.so"
        shutil.copy(LIBRARY, other)
        done = self.run_vor("bench", *self.QUICK, "--against", other, "--csv", "m.csv",
                            "--plot", "m.svg")
        self.assertEqual(done.stderr, "", "no progress line in a pipe")
        limits = re.findall(r"^  limit (\S+) +([\d.]+)", done.stdout, re.M)
        self.assertEqual([name for name, _ in limits], ["x87", "4-wide", "copy", "product"])
        for name, rate in limits:
            self.assertGreater(float(rate), 0, name)
        with open(self.dir / "m.csv", newline="") as file:
            rows = list(csv.DictReader(file))
        self.assertEqual([(r["case"], r["against"]) for r in rows],
                         [("lsame", ""), ("lsame", "engine"), ("lsame", "other")])
        for row in rows:
            self.assertGreater(float(row["seconds"]), 0)
        for row in rows[1:]: # printed with six and with four digits
            ratio = float(row["seconds"]) / float(rows[0]["seconds"])
            self.assertAlmostEqual(float(row["ratio"]), ratio, delta=1e-3 * (1 + ratio))
        text = self.svg_text(self.dir / "m.svg")
        for word in ("lsame", "engine", "other"):
            self.assertIn(word, text)

    def test_progress_on_a_terminal(self):
        terminal, end = pty.openpty()
        with subprocess.Popen([VOR, "bench", *self.QUICK], stdout=subprocess.DEVNULL,
                              stderr=end) as process:
            os.close(end)
            self.assertIn(b"[1/1] lsame", os.read(terminal, 1024))
        os.close(terminal)
        self.assertEqual(process.returncode, 0)

    def test_faults(self):
        self.fails(r"vor: --filter: not a regular expression: \(", "bench", "--filter", "(")
        self.fails(r"vor: --filter: no case matches nothing", "bench", "--filter", "nothing")
        self.fails(r"vor: .*missing\.so.*", "bench", *self.QUICK, "--against", "missing.so")
        self.fails(r"vor: no/m\.csv: cannot be written", "bench", *self.QUICK, "--csv", "no/m.csv")
        self.fails(r"vor: no/m\.svg: cannot be written", "bench", *self.QUICK, "--plot", "no/m.svg")
        # What a picture would have replaced stays when there is none.
        kept = self.file("kept.svg", "kept")
        self.run_vor("bench", *self.QUICK, "--plot", kept, status=1, PATH=str(self.dir))
        self.assertEqual(kept.read_text(), "kept")
        for wrong in (["bench", "--rounds", "0"], ["bench", "--seconds", "nan"],
                      ["solve", "a.mtx", "--tolerance", "nan"], ["bench", "more"],
                      ["nothing"], []):
            self.run_vor(*wrong, status=2)
        self.assertIn("--against", self.run_vor("bench", "--help").stdout)


if __name__ == "__main__":
    unittest.main()
