#!/usr/bin/env python3
"""Writes src/transform/wavelet_taps.cpp: the scaling filters of the wavelets that cannot be built well in double.

    tools/wavelet_taps.py > src/transform/wavelet_taps.cpp
    tools/wavelet_taps.py --check      also compares with the tables of PyWavelets, which hold 11 to 16 digits

Needs mpmath (python3-mpmath) and PyWavelets (python3-pywt). Everything is computed with 60 digits and rounded once.

  Daubechies    I. Daubechies, Ten Lectures on Wavelets, 6.1: spectral factorisation, all zeros inside the unit circle
  symlets       the same halfband filters with the zeros chosen for the most linear phase (Ten Lectures, 8.1.1); which of
                them, is the choice of the published tables: see symlet_choices
  coiflets      Ten Lectures, 8.2: Newton's method on orthonormality and vanishing moments, from PyWavelets' digits
  Meyer         the 62-tap approximation in use, as PyWavelets has it, is orthonormal to 2e-3 only: the nearest filter that
                is exactly orthonormal and vanishes at the Nyquist frequency; no tap is more than 9e-4 off
  Beylkin       18 taps, from Beylkin, Coifman, Rokhlin, Fast Wavelet Transforms and Numerical Algorithms I
  Vaidyanathan  24 taps, from Vaidyanathan, Hoang, Lattice structures for optimal design of two-channel QMF banks; both
                printed to 12 digits. The nearest filters that are exactly orthonormal and vanish at the Nyquist
                frequency; Vaidyanathan's has 1.3e-4 there as printed, which moves its taps by up to 7e-6
  biorthogonal  Cohen, Daubechies, Feauveau, the pairs 4.4, 5.5 and 6.8, which are no splines: the zeros of the halfband
                filter shared between the two filters
"""
import functools
import sys

import numpy as np
import pywt
from mpmath import binomial, conj, lu_solve, matrix, mp, mpc, mpf, polyroots, sqrt

mp.dps = 60

beylkin = """.099305765374 .424215360813 .699825214057 .449718251149 -.110927598348 -.264497231446 .026900308804
    .155538731877 -.017520746267 -.088543630623 .019679866044 .042916387274 -.017460408696 -.014365807969 .010040411845
    .001484234782 -.002736031626 .000640485329"""
vaidyanathan = """-.000062906118 .000343631905 -.000453956620 -.000944897136 .002843834547 .000708137504 -.008839103409
    .003153847056 .019687215010 -.014853448005 -.035470398607 .038742619293 .055892523691 -.077709750902 -.083928884366
    .131971661417 .135084227129 -.194450471766 -.263494802488 .201612161775 .635601059872 .572797793211 .250184129505
    .045799334111"""


def times(a, b):
    out = [mpf(0)] * (len(a) + len(b) - 1)
    for i, x in enumerate(a):
        for j, y in enumerate(b):
            out[i + j] += x * y
    return out


def scaled(p):
    p = [x.real if isinstance(x, mpc) else x for x in p]
    total = sum(p)
    return [x * sqrt(mpf(2)) / total for x in p]


@functools.cache
def zero_groups(moments):
    """The zeros inside the unit circle of the halfband filter with that many moments a side, conjugates together.

    sum of C(n-1+k, k) y^k with y = (2 - z - 1/z)/4: a zero in y is a pair z, 1/z."""
    n = moments
    if n == 1:
        return []
    groups = []
    for y in polyroots([binomial(n - 1 + k, k) for k in range(n)][::-1], maxsteps=2000, extraprec=2000):
        if y.imag < -mpf(10) ** -40:
            continue
        b = 1 - 2 * y
        root = sqrt(b * b - 1)
        z = b - root if abs(b - root) < 1 else b + root
        isreal = abs(y.imag) < mpf(10) ** -40
        groups.append([z.real] if isreal else [z, conj(z)])
    return sorted(groups, key=lambda g: (len(g), abs(g[0])))


def from_zeros(zeros, moments):
    p = [mpf(1)]
    for _ in range(moments):
        p = times(p, [mpf(1), mpf(1)])
    for z in zeros:
        p = times(p, [mpf(1), -z])
    return scaled(p)


def orthogonal(moments, choice=0):
    """Bit i of the choice puts the group i outside of the circle."""
    zeros = []
    for i, group in enumerate(zero_groups(moments)):
        zeros += [1 / z for z in group] if choice >> i & 1 else group
    return from_zeros(zeros, moments)


def newton(start, equations):
    """The zero of the equations nearest to the start, by the least steps (least squares where there are too many)."""
    h = [mpf(x) for x in start]
    for _ in range(60):
        f, jacobian = equations(h)
        j, r = matrix(jacobian), matrix(f)
        if j.rows <= j.cols:
            step = j.T * lu_solve(j * j.T, r)
        else:
            step = lu_solve(j, r)
        h = [x - s for x, s in zip(h, step)]
        if max(abs(s) for s in step) < mpf(10) ** -45:
            return h
    sys.exit("no convergence")


def orthonormality(h):
    n = len(h)
    f, rows = [], []
    for shift in range(0, n, 2):
        f.append(sum(h[k] * h[k + shift] for k in range(n - shift)) - (shift == 0))
        rows.append([(h[k + shift] if k + shift < n else 0) + (h[k - shift] if k >= shift else 0) for k in range(n)])
    return f, rows


def nearest_orthonormal(start):
    def equations(h):
        f, rows = orthonormality(h)
        alternating = [mpf(-1) ** k for k in range(len(h))]
        return f + [sum(a * x for a, x in zip(alternating, h))], rows + [alternating]

    return newton(start, equations)


def coiflet(k):
    start = pywt.Wavelet("coif%d" % k).rec_lo

    def equations(h):
        f, rows = orthonormality(h)
        for moment in range(2 * k):
            row = [mpf(-1) ** n * mpf(n - 2 * k) ** moment for n in range(len(h))]
            f.append(sum(a * x for a, x in zip(row, h)))
            rows.append(row)
        for moment in range(2 * k):
            row = [mpf(n - 2 * k) ** moment for n in range(len(h))]
            f.append(sum(a * x for a, x in zip(row, h)) - (sqrt(mpf(2)) if moment == 0 else 0))
            rows.append(row)
        return f, rows

    return newton(start, equations)


def biorthogonal(half, analysis_moments, analysis_groups):
    """The two filters from the halfband filter with 2 half zeros at -1; the analysis filter takes the groups named."""
    groups = zero_groups(half)
    filters = []
    for moments, taken in ((analysis_moments, True), (2 * half - analysis_moments, False)):
        zeros = [x for i, g in enumerate(groups) if (i in analysis_groups) == taken for z in g for x in (z, 1 / z)]
        filters.append(from_zeros(zeros, moments))
    return filters


def nearest_in_double(target):
    """Where Newton's method would wander off: the distance to the target, weighted less and less against the equations."""
    target = np.array(target)
    h, n = target, len(target)
    for weight in 10.0 ** -np.arange(0, 13, 0.25):
        for _ in range(30):
            f, rows = orthonormality(h)
            alternating = (-1.0) ** np.arange(n)
            f, rows = np.array(f + [alternating @ h]), np.array(rows + [alternating], dtype=float)
            a = np.vstack([rows, weight * np.eye(n)])
            step = np.linalg.lstsq(a, np.concatenate([-f, weight * (target - h)]), rcond=None)[0]
            h = h + step
            if np.abs(step).max() < 1e-14:
                break
    return h


# Bit i: the group i of zero_groups lies outside of the unit circle.
symlet_choices = {2: 0, 3: 0, 4: 2, 5: 1, 6: 5, 7: 1, 8: 10, 9: 6, 10: 21, 11: 6, 12: 21, 13: 28, 14: 44, 15: 28, 16: 89,
                  17: 142, 18: 333, 19: 116, 20: 357}


def emit(name, comment, filters):
    print("// %s" % comment)
    print("constinit const double %s[] = {" % name)
    for h in filters:
        line = "   "
        for x in h:
            text = " %s," % repr(float(x))
            if len(line) + len(text) > 120:
                print(line)
                line = "   "
            line += text
        print(line)
    print("};\n")


daubechies = {n: orthogonal(n) for n in range(1, 21)}
symlets = {n: orthogonal(n, choice) for n, choice in symlet_choices.items()}
coiflets = {k: coiflet(k) for k in range(1, 6)}
meyer = nearest_orthonormal(nearest_in_double(pywt.Wavelet("dmey").rec_lo))
pairs = {"4.4": biorthogonal(4, 4, {1}), "5.5": biorthogonal(5, 4, {1}), "6.8": biorthogonal(7, 8, {0, 2})}

if "--check" in sys.argv:
    def compare(name, got, published):
        print("%-6s %3d taps, %.1e off" % (name, len(got), max(abs(a - b) for a, b in zip(got, published))))
        f, _ = orthonormality([mpf(float(x)) for x in got])
        if len(got) % 2 == 0:
            print("       orthonormal to %.1e, sum to %.1e" % (max(abs(x) for x in f), abs(sum(got) - sqrt(mpf(2)))))

    for prefix, family in (("db", daubechies), ("sym", symlets), ("coif", coiflets)):
        for n, h in family.items():
            compare(prefix + str(n), h, pywt.Wavelet(prefix + str(n)).rec_lo)
    compare("dmey", meyer, pywt.Wavelet("dmey").rec_lo)
    for name, text in (("beylkin", beylkin), ("vaidyanathan", vaidyanathan)):
        printed = [mpf(x) for x in text.split()]
        compare(name, nearest_orthonormal(printed), printed)
    for name, filters in pairs.items():
        wavelet = pywt.Wavelet("bior" + name)
        for got, published in zip(filters, (wavelet.dec_lo, wavelet.rec_lo)):
            compare(name, got, [x for x in published if x != 0])
    sys.exit()

print("""// Low-pass synthesis filters. Written by tools/wavelet_taps.py, which says where they come from.
#include "transform/wavelet_taps.hpp"

// clang-format off
namespace ark {
""")
emit("daubechiesTaps", "Of 1 to 20 vanishing moments, 2 to 40 taps.", daubechies.values())
emit("symletTaps", "Of 4 to 20 vanishing moments, 8 to 40 taps; those of 2 and 3 are the Daubechies filters.",
     [h for n, h in symlets.items() if n >= 4])
emit("coifletTaps", "6 to 30 taps.", coiflets.values())
emit("meyerTaps", "62 taps.", [meyer])
emit("beylkinTaps", "18 taps.", [nearest_orthonormal(beylkin.split())])
emit("vaidyanathanTaps", "24 taps.", [nearest_orthonormal(vaidyanathan.split())])
emit("biorthogonalTaps", "The first halves, with the middle one, of the analysis and the synthesis filter: 4.4, 5.5, 6.8.",
     [h[: len(h) // 2 + 1] for pair in pairs.values() for h in pair])
print("} // namespace ark\n// clang-format on")
