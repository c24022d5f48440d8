#!/usr/bin/env python3
"""Mutation testing for the tuner: which realistic slips does the suite catch?

Mutants are made mechanically, never picked by hand: relational and
arithmetic operators flipped, integer constants off by one, a call statement
dropped, two adjacent call statements swapped, a boolean negated. Sites are
found line by line in the chosen C++ files (comments, strings and
preprocessor lines masked), drawn with a fixed seed, applied one at a time,
built incrementally and run against the suite. Run through run-mutants.sh.
"""

import argparse
import collections
import hashlib
import os
import random
import re
import signal
import subprocess
import sys
import time

SRC = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
EQUIVALENT_FILE = os.path.join(SRC, "scripts", "mutants-equivalent.txt")
PLUGIN_FOLDERS = ["bus", "state", "screens", "player", "window", "nowplaying", "plugin"]
# Never mutated: what the generator makes is not ours, and a test's own
# source is not under test.
SKIPPED = re.compile(r"(^|/)(tests|build[^/]*)/")

Mutant = collections.namedtuple("Mutant", "path line kind before after")


def mask(line):
    """The line with string and char literals and // comments blanked, same length."""
    out = []
    i, quote = 0, None
    while i < len(line):
        c = line[i]
        if quote:
            if c == "\\" and i + 1 < len(line):
                out.append("  ")
                i += 2
                continue
            out.append(c if c == quote else " ")
            if c == quote:
                quote = None
        elif c in "\"'":
            # 1'000 digit separators are not quotes
            if c == "'" and i > 0 and line[i - 1].isdigit() and i + 1 < len(line) and line[i + 1].isdigit():
                out.append(c)
            else:
                quote = c
                out.append(c)
        elif line.startswith("//", i):
            out.append(" " * (len(line) - i))
            break
        else:
            out.append(c)
        i += 1
    return "".join(out)


RELATIONAL = {" == ": " != ", " != ": " == ", " < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > "}
LOGICAL = {" && ": " || ", " || ": " && "}
ARITHMETIC = {" + ": " - ", " - ": " + ", " * ": " / ", " / ": " * ", "++": "--", "--": "++"}
INTEGER = re.compile(r"(?<![\w.])(\d+)(?![\w.'])")
BOOLEAN = re.compile(r"\b(true|false)\b")
NEGATION = re.compile(r"!(?!=)(?=[\w(])")
# One call as a whole statement: `x->f(a);`, `emit done();`, `f(g(a), b);`
CALL = re.compile(r"^\s*(emit\s+)?[A-Za-z_][\w:]*(\s*(\.|->)\s*[A-Za-z_]\w*)*\s*\(.*\)\s*;\s*$")
NOT_A_CALL = re.compile(r"^\s*(return|delete|throw|case|goto|if|for|while|switch|using|typedef|Q_\w+|QT_\w+)\b")
# Lines where a flip only breaks the build, or means nothing.
UNMUTABLE = re.compile(r"^\s*(#|static_assert|Q_PROPERTY|Q_DECLARE|Q_ENUM|Q_INTERFACES|Q_PLUGIN_METADATA|template\s*<)")
STRINGY = re.compile(r"QString|QLatin1|QStringLiteral|\.arg\(|QByteArray|\"")


def balanced(text):
    depth = 0
    for c in text:
        depth += c == "("
        depth -= c == ")"
        if depth < 0:
            return False
    return depth == 0


def is_call_statement(raw, masked):
    if not CALL.match(masked) or NOT_A_CALL.match(masked):
        return False
    # a declaration with constructor arguments (`QString s(x);`) is not a call
    if re.match(r"^\s*(const\s+)?[A-Za-z_][\w:<>,\s*&]*\s+[*&]?[A-Za-z_]\w*\s*\(", masked):
        head = masked.strip().split("(")[0]
        if " " in head.replace("emit ", "") and "->" not in head and "." not in head:
            return False
    return balanced(masked)


def line_sites(path, lineno, raw):
    """Every mutant of one line."""
    masked = mask(raw)
    stripped = masked.strip()
    if not stripped or UNMUTABLE.match(masked) or stripped.startswith(("*", "/*")):
        return
    def replace_at(start, length, new, kind):
        after = raw[:start] + new + raw[start + length:]
        if after != raw:
            yield Mutant(path, lineno, kind, raw, after)

    for table, kind in ((RELATIONAL, "relational"), (LOGICAL, "logical")):
        for op, new in table.items():
            for m in re.finditer(re.escape(op), masked):
                yield from replace_at(m.start(), len(op), new, kind)
    if not STRINGY.search(raw):
        for op, new in ARITHMETIC.items():
            for m in re.finditer(re.escape(op), masked):
                # `*` and `&` with spaces round them only in arithmetic;
                # `--`/`++` beside an identifier only
                if op in ("++", "--") and not re.search(r"\w" + re.escape(op) + r"|" + re.escape(op) + r"\w",
                                                          masked[max(0, m.start() - 1):m.end() + 1]):
                    continue
                yield from replace_at(m.start(), len(op), new, "arithmetic")
    for m in INTEGER.finditer(masked):
        value = int(m.group(1))
        # array sizes, bit widths and field numbers of declarations break the build or nothing
        if re.search(r"\[\s*$", masked[:m.start()]) and re.match(r"\s*\]\s*[;={]", masked[m.end():]):
            continue
        for new in (value + 1, value - 1):
            if new >= 0:
                yield from replace_at(m.start(), len(m.group(1)), str(new), "constant")
    for m in BOOLEAN.finditer(masked):
        yield from replace_at(m.start(), len(m.group(1)), "false" if m.group(1) == "true" else "true", "boolean")
    for m in NEGATION.finditer(masked):
        yield from replace_at(m.start(), 1, "", "boolean")
    if is_call_statement(raw, masked):
        indent = raw[:len(raw) - len(raw.lstrip())]
        yield Mutant(path, lineno, "dropped call", raw, indent + ";  // dropped: " + raw.strip())


def file_mutants(path, only_lines=None):
    with open(os.path.join(SRC, path), encoding="utf-8") as f:
        lines = f.read().split("\n")
    in_block_comment = False
    previous_call = None
    for i, raw in enumerate(lines):
        lineno = i + 1
        code = raw
        if in_block_comment:
            if "*/" not in raw:
                previous_call = None
                continue
            code = " " * (raw.index("*/") + 2) + raw[raw.index("*/") + 2:]
            in_block_comment = False
        if "/*" in mask(code) and "*/" not in mask(code)[mask(code).index("/*"):]:
            in_block_comment = True
            code = code[:mask(code).index("/*")]
        wanted = only_lines is None or lineno in only_lines
        if wanted:
            yield from line_sites(path, lineno, code)
        # two call statements in a row, same indentation: swapped
        masked = mask(code)
        if is_call_statement(code, masked) and wanted:
            if previous_call is not None and previous_call[1] == code[:len(code) - len(code.lstrip())]:
                prev_line, _, prev_raw = previous_call
                if prev_raw.strip() != code.strip():
                    yield Mutant(path, lineno, "swapped calls", prev_raw + "\n" + code, code + "\n" + prev_raw)
            previous_call = (lineno, code[:len(code) - len(code.lstrip())], code)
        else:
            previous_call = None


def mutant_id(m):
    key = "\0".join([m.path, m.kind, m.before.strip(), m.after.strip()])
    return hashlib.sha1(key.encode()).hexdigest()[:10]


def read_equivalents():
    known = {}
    if os.path.exists(EQUIVALENT_FILE):
        with open(EQUIVALENT_FILE, encoding="utf-8") as f:
            for line in f:
                line = line.strip()
                if not line or line.startswith("#"):
                    continue
                ident, _, reason = line.partition(" ")
                known[ident] = reason.strip()
    return known


def apply(m, text):
    lines = text.split("\n")
    if m.kind == "swapped calls":
        first = m.line - 2
        lines[first:first + 2] = m.after.split("\n")
    else:
        lines[m.line - 1] = m.after
    return "\n".join(lines)


def diff(m):
    before = m.before.split("\n")
    after = m.after.split("\n")
    first = m.line - len(before) + 1
    return "\n".join([f"--- {m.path}:{first} ({m.kind})"] + ["- " + b for b in before] + ["+ " + a for a in after])


def changed_lines(git_range):
    """{path: set of line numbers} that the range added or changed."""
    out = subprocess.run(["git", "-C", SRC, "diff", "-U0", git_range, "--", "*.cpp", "*.h"],
                         check=True, capture_output=True, text=True).stdout
    result, path = {}, None
    for line in out.splitlines():
        if line.startswith("+++ "):
            path = line[6:] if line.startswith("+++ b/") else None
        elif line.startswith("@@") and path:
            m = re.search(r"\+(\d+)(?:,(\d+))?", line)
            start, count = int(m.group(1)), int(m.group(2) or "1")
            result.setdefault(path, set()).update(range(start, start + count))
    return result


def source_files(targets):
    files = []
    for target in targets:
        full = os.path.join(SRC, target)
        if os.path.isdir(full):
            for root, _, names in os.walk(full):
                for name in sorted(names):
                    if name.endswith((".cpp", ".h")):
                        files.append(os.path.relpath(os.path.join(root, name), SRC))
        elif os.path.isfile(full):
            files.append(os.path.relpath(full, SRC))
        else:
            sys.exit(f"run-mutants: no such file or folder: {target}")
    return sorted(f for f in files if not SKIPPED.search(f))


def run(cmd, log, timeout=None, **kw):
    with open(log, "a") as out:
        out.write("\n$ " + " ".join(cmd) + "\n")
        out.flush()
        try:
            return subprocess.run(cmd, stdout=out, stderr=subprocess.STDOUT, timeout=timeout, **kw).returncode
        except subprocess.TimeoutExpired:
            return -1


def main():
    ap = argparse.ArgumentParser(prog="run-mutants.sh", description=__doc__,
                                 formatter_class=argparse.RawDescriptionHelpFormatter)
    ap.add_argument("targets", nargs="*", help="files or folders (default: every folder of the plug-in)")
    ap.add_argument("--range", help="only lines a git range changed, e.g. main~3..HEAD")
    ap.add_argument("--seed", type=int, default=28, help="seed of the draw (default 28)")
    ap.add_argument("--max", type=int, default=12, help="mutants drawn per folder (default 12; 0: all)")
    ap.add_argument("--tests", default="", help="ctest -R regex: only these tests (default: the suite)")
    ap.add_argument("--build", default=os.path.join(SRC, "build-mutants"), help="build folder (build-mutants/)")
    ap.add_argument("--list", action="store_true", help="only list the drawn mutants")
    args = ap.parse_args()

    if args.range:
        lines = changed_lines(args.range)
        files = [f for f in sorted(lines) if not SKIPPED.search(f) and os.path.exists(os.path.join(SRC, f))]
        mutants = [m for f in files for m in file_mutants(f, lines[f])]
    else:
        files = source_files(args.targets or PLUGIN_FOLDERS)
        mutants = [m for f in files for m in file_mutants(f)]

    # A fixed draw per folder, so a folder's score is comparable between runs.
    by_folder = collections.OrderedDict()
    for m in mutants:
        by_folder.setdefault(m.path.split("/")[0], []).append(m)
    drawn = []
    for folder, group in by_folder.items():
        rng = random.Random(f"{args.seed}:{folder}")
        group = sorted(group, key=lambda m: (m.path, m.line, m.kind, m.after))
        drawn += group if args.max == 0 or len(group) <= args.max else rng.sample(group, args.max)

    if args.list:
        for m in drawn:
            print(mutant_id(m), diff(m), sep="  ")
        print(f"{len(drawn)} of {len(mutants)} mutants")
        return 0

    log = os.path.join(args.build, "mutants.log")
    os.makedirs(args.build, exist_ok=True)
    open(log, "w").close()
    print(f"Building {args.build} (log: {log}) ...", flush=True)
    if run(["cmake", "-S", SRC, "-B", args.build, "-DCMAKE_BUILD_TYPE=Debug", "-DTUNER_WERROR=OFF"], log) != 0 \
            or run(["cmake", "--build", args.build, f"-j{os.cpu_count()}"], log) != 0:
        sys.exit(f"run-mutants: the unmutated tree does not build; see {log}")
    ctest = ["ctest", "--test-dir", args.build, "-E", "^(tst_package|bench_smoke)$", "-j", str(os.cpu_count()),
             "--timeout", "240", "--stop-on-failure"]
    if args.tests:
        ctest += ["-R", args.tests]
    if run(ctest, log) != 0:
        sys.exit(f"run-mutants: the suite fails without a mutant; see {log}")

    # Stopped midway, the file under mutation is still put back (the finally below).
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    equivalents = read_equivalents()
    score = collections.OrderedDict()
    survivors = []
    for n, m in enumerate(drawn, 1):
        ident = mutant_id(m)
        folder = m.path.split("/")[0]
        tally = score.setdefault(folder, collections.Counter())
        if ident in equivalents:
            tally["equivalent"] += 1
            print(f"[{n}/{len(drawn)}] {ident} equivalent: {equivalents[ident]}", flush=True)
            continue
        path = os.path.join(SRC, m.path)
        with open(path, encoding="utf-8") as f:
            original = f.read()
        started = time.time()
        try:
            with open(path, "w", encoding="utf-8") as f:
                f.write(apply(m, original))
            if run(["cmake", "--build", args.build, f"-j{os.cpu_count()}"], log) != 0:
                verdict = "stillborn"  # did not compile: no slip a compiler lets through
            else:
                verdict = "killed" if run(ctest, log) != 0 else "survived"
        finally:
            # written anew, so the next build compiles the original again
            with open(path, "w", encoding="utf-8") as f:
                f.write(original)
        tally[verdict] += 1
        print(f"[{n}/{len(drawn)}] {ident} {verdict} ({time.time() - started:.0f} s)  {m.path}:{m.line} {m.kind}",
              flush=True)
        if verdict == "survived":
            survivors.append((ident, m))
    run(["cmake", "--build", args.build, f"-j{os.cpu_count()}"], log)

    print("\nSurvivors (an assertion is missing, or add the id with a reason to scripts/mutants-equivalent.txt):")
    for ident, m in survivors:
        print(f"\n{ident}\n{diff(m)}")
    print("\n| folder | mutants | killed | survived | equivalent | stillborn | score |")
    print("|---|---|---|---|---|---|---|")
    for folder, t in score.items():
        live = t["killed"] + t["survived"]
        pct = f"{100 * t['killed'] / live:.0f} %" if live else "-"
        print(f"| {folder} | {sum(t.values())} | {t['killed']} | {t['survived']} | {t['equivalent']} "
              f"| {t['stillborn']} | {pct} |")
    return 1 if survivors else 0


if __name__ == "__main__":
    sys.exit(main())
