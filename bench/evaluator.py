#!/usr/bin/env python3
"""Compares the evaluator with Python's decimal module and with bc: equal values, and the ratio of the times.

    python3 bench/evaluator.py [-c COUNT]

Random expressions must have the same value to the last digit. Then, for numbers of 10 to 10,000 digits, each contestant
calculates the same sums, products and quotients; reading the numbers and writing the value count. bc's start is
subtracted. Ratios above 1 mean that the evaluator is faster.
"""
import argparse
import random
import subprocess
import sys
import time
from decimal import ROUND_HALF_UP, Decimal, localcontext
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PROGRAM = ROOT / "build/release/bin/evaluator_speed"
OPERATORS = {"sum": "+", "product": "*", "quotient": "/"}
DIGITS = {10: 4000, 100: 2000, 1000: 300, 10000: 20}  # digits: expressions of each kind
ROUNDS = 5

sys.set_int_max_str_digits(0)
sys.path.insert(0, str(ROOT / "tests/unit"))
import evaluator_table  # noqa: E402


def evaluate(expressions, places, passes=1):
    """The values and the seconds of a pass."""
    done = subprocess.run([PROGRAM, str(places), str(passes)], input="\n".join(expressions), capture_output=True,
                          text=True, check=True)
    return done.stdout.split("\n")[:-1], float(done.stderr) / passes


def random_expressions(count, places):
    rng = random.Random(1)
    with localcontext() as context:
        context.prec = 400 + places
        while count:
            try:
                text, value = evaluator_table.expression(rng, rng.randint(1, 4))
                answer = evaluator_table.shown(value, places)
            except (evaluator_table.Unsuitable, ArithmeticError):
                continue
            yield text, answer
            count -= 1


def plain(value):
    """As the evaluator writes numbers: no exponent, no zeros at the end, no negative zero."""
    text = f"{value:f}"
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


def operands(rng, digits, count):
    def number():
        text = str(rng.randrange(10 ** (digits - 1), 10**digits))
        return f"{text[: digits // 2]}.{text[digits // 2 :]}"

    return [(number(), number()) for _ in range(count)]


def with_decimal(pairs, sign, digits):
    start = time.perf_counter()
    with localcontext() as context:
        context.prec = 2 * digits + 10
        step = Decimal(1).scaleb(-digits)
        values = []
        for a, b in pairs:
            a, b = Decimal(a), Decimal(b)
            value = a + b if sign == "+" else a * b if sign == "*" else (a / b).quantize(step, ROUND_HALF_UP)
            values.append(str(value))
    return values, time.perf_counter() - start


def with_bc(pairs, sign, digits):
    def seconds(text):
        start = time.perf_counter()
        subprocess.run(["bc", "-q"], input=text, env={"BC_LINE_LENGTH": "0"}, capture_output=True, text=True, check=True)
        return time.perf_counter() - start

    lines = [f"scale={digits}", *(f"{a}{sign}{b}" for a, b in pairs)]
    return max(seconds("\n".join(lines) + "\n") - seconds("scale=1\n"), 1e-9)


def compare_values(count):
    places = 10
    texts, expected = zip(*random_expressions(count, places))
    values, _ = evaluate(texts, places)
    wrong = [(text, right, value) for text, right, value in zip(texts, expected, values) if right != value]
    print(f"{count} random expressions: {len(wrong)} differ")
    for text, right, value in wrong[:10]:
        print(f"  {text} is {right}, not {value}")
    return not wrong and len(values) == count


def compare_speed():
    rng = random.Random(2)
    print(f"{'digits':>7} {'':10}{'us each':>10}{'decimal':>10}{'bc':>10}")
    for digits, count in DIGITS.items():
        pairs = operands(rng, digits, count)
        for name, sign in OPERATORS.items():
            own, python, other = [], [], []
            for _ in range(ROUNDS):
                values, seconds = evaluate([f"{a}{sign}{b}" for a, b in pairs], digits)
                own.append(seconds)
                expected, seconds = with_decimal(pairs, sign, digits)
                python.append(seconds)
                other.append(with_bc(pairs, sign, digits))
            if sign != "*" and [plain(Decimal(value)) for value in expected] != values:
                print(f"  {name} of {digits} digits: the values differ")
            best = min(own)
            print(f"{digits:7} {name:10}{best / count * 1e6:10.2f}{min(python) / best:10.2f}{min(other) / best:10.2f}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("-c", dest="count", type=int, default=10000, help="random expressions to compare")
    arguments = parser.parse_args()
    subprocess.run([ROOT / "tools/build", "release"], check=True)
    if not compare_values(arguments.count):
        sys.exit(1)
    compare_speed()


if __name__ == "__main__":
    main()
