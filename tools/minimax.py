#!/usr/bin/env python3
"""Prints the polynomials of src/vector/arklnexp_kernels.cpp: minimax in the relative error of the result (Remez).

Needs mpmath (python3-mpmath). Coefficients are printed from the constant term on, rounded to the type; the error is that
of the polynomial with rounded coefficients, in units of the type's precision.
"""
from mpmath import cos, exp, ln, log, lu_solve, matrix, mp, mpf, pi, sqrt
import struct

mp.prec = 160


def remez(f, weight, low, high, degree):
    """The polynomial p with the least maximum of |(p(x) - f(x)) weight(x)|."""
    count = degree + 2
    nodes = [(low + high) / 2 - (high - low) / 2 * cos(pi * (k + mpf(3) / 7) / count) for k in range(count)]
    for _ in range(30):
        a, b = matrix(count, count), matrix(count, 1)
        for i, x in enumerate(nodes):
            for j in range(degree + 1):
                a[i, j] = weight(x) * x**j
            a[i, degree + 1] = (-1) ** i
            b[i] = weight(x) * f(x)
        p = list(lu_solve(a, b))[: degree + 1]
        error = lambda x: (evaluate(p, x) - f(x)) * weight(x)
        # The new nodes: the extremum of each stretch between two zeros of the error, which alternate with the nodes.
        grid = [low + (high - low) * k / 2000 for k in range(2001)]
        errors = [error(x) for x in grid]
        stretches, start = [], 0
        for k in range(1, len(grid) + 1):
            if k == len(grid) or errors[k] * errors[k - 1] < 0:
                stretches.append(max(range(start, k), key=lambda i: abs(errors[i])))
                start = k
        if len(stretches) != count:
            break
        if [grid[k] for k in stretches] == nodes:
            break
        nodes = [grid[k] for k in stretches]
    return p


def evaluate(p, x):
    result = mpf(0)
    for c in reversed(p):
        result = result * x + c
    return result


def rounded(c, single):
    return struct.unpack("f", struct.pack("f", float(c)))[0] if single else float(c)


def show(name, f, weight, low, high, degree, single):
    p = [rounded(c, single) for c in remez(f, weight, mpf(low), mpf(high), degree)]
    grid = [low + (high - low) * (mpf(k) + mpf(1) / 3) / 3000 for k in range(3000)]
    worst = max(abs((evaluate([mpf(c) for c in p], x) - f(x)) * weight(x)) for x in grid)
    print(f"{name}, degree {degree}: error 2^{float(log(worst, 2)):.1f}")
    print("   ", ", ".join((c.hex() + ("f" if single else "")) for c in p))


half = ln(2) / 2 * mpf("1.0001")
root = sqrt(mpf(2))


def q(r):  # e^r = 1 + r + r^2 q(r)
    return (exp(r) - 1 - r) / r**2 if abs(r) > mpf(10) ** -12 else mpf(1) / 2 + r / 6


def p(f):  # ln(1 + f) = f - f^2/2 + f^3 p(f)
    return (ln(1 + f) - f + f**2 / 2) / f**3 if abs(f) > mpf(10) ** -12 else mpf(1) / 3 - f / 4


def t(z):  # ln((1 + s) / (1 - s)) = 2 s + s z t(z), z = s^2
    s = sqrt(z)
    return (ln((1 + s) / (1 - s)) - 2 * s) / (s * z) if z > mpf(10) ** -12 else mpf(2) / 3 + z * 2 / 5


show("float exp, q", q, lambda r: r**2 / exp(r), -half, half, 4, True)
show("double exp, q", q, lambda r: r**2 / exp(r), -half, half, 9, False)
show("float ln, p", p, lambda f: abs(f**3 / ln(1 + f)) if f else f, 1 / root - 1, root - 1, 7, True)
edge = (root - 1) / (root + 1)
show("double ln, t", t, lambda z: z / 2, mpf(10) ** -9, edge**2, 6, False)
