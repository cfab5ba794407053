#!/usr/bin/python3
"""Measures filters and convolution beside SciPy's, in turns in one process: bench/run scipy.

    beside_scipy.py libarkpx.so [milliseconds of a measurement]

Nanoseconds an output, the least of many repetitions. Both are called from Python: short blocks measure that.
"""
import ctypes
import sys
import time

import numpy as np
import scipy
from scipy import signal

library = ctypes.CDLL(sys.argv[1])
library.arkSetErrMode(2)  # silent
budget = float(sys.argv[2]) / 1e3 if len(sys.argv) > 2 else 0.2
random = np.random.default_rng(1)


def floats(n):
    return random.uniform(-1, 1, n).astype(np.float32)


def at(array):
    return array.ctypes.data_as(ctypes.c_void_p)


class Record(ctypes.Structure):
    """Room for any filter object, zeroed."""
    _fields_ = [("words", ctypes.c_uint64 * 32)]


def row(name, outputs, ours, theirs):
    least = [np.inf, np.inf]
    end = time.perf_counter() + budget
    while time.perf_counter() < end:
        for i, work in enumerate((ours, theirs)):
            begin = time.perf_counter()
            work()
            least[i] = min(least[i], time.perf_counter() - begin)
    a, b = (1e9 * seconds / outputs for seconds in least)
    print(f"| {name:36} | {outputs:7} | {a:8.3f} | {b:8.3f} | {a / b:6.3f} |", flush=True)


def fir(n, taps, up=1, down=1):
    h, x = floats(taps * up), floats(n * down // up)  # taps: of each phase
    y, state = np.zeros(n, np.float32), Record()
    library.arksFirInitMr(at(h), len(h), None, up, 0, down, 0, ctypes.byref(state))
    ours = lambda: library.arksbFir(ctypes.byref(state), at(x), at(y), n // up)
    one = np.array([1], np.float32)
    theirs = (lambda: signal.lfilter(h, one, x)) if up == down == 1 else (lambda: signal.upfirdn(h, x, up, down))
    row(f"FIR, {taps} taps" + (f", up {up} down {down}" if up * down > 1 else ""), n, ours, theirs)


def biquads(n, count):
    sos = signal.butter(2 * count, 0.2, output="sos").astype(np.float32)
    x, y, state = floats(n), np.zeros(n, np.float32), Record()
    library.arksIirInitBq(0, at(np.ascontiguousarray(sos)), count, ctypes.byref(state))
    row(f"{count} biquads", n, lambda: library.arksbIir(ctypes.byref(state), at(x), at(y), n), lambda: signal.sosfilt(sos, x))


def convolution(length, n):
    x, h, y = floats(length), floats(n), np.zeros(length + n - 1, np.float32)
    row(f"convolution, {n} taps", length, lambda: library.arksConv(at(x), length, at(h), n, at(y)),
        lambda: signal.oaconvolve(x, h))


print(f"\n## Beside SciPy\n\nNanoseconds an output; SciPy {scipy.__version__}.\n")
print(f"| {'':36} | {'n':>7} | {'arkpx':>8} | {'SciPy':>8} | {'ratio':>6} |")
print(f"|{'-' * 38}|--------:|---------:|---------:|-------:|")
for taps in (16, 64, 256):
    fir(65536, taps)
fir(65535, 64, up=3)
fir(65536, 64, down=4)
fir(65535, 64, up=3, down=2)
for count in (1, 4, 8):
    biquads(64, count)
    biquads(65536, count)
for length, n in ((1000, 16), (1000, 101), (4096, 512), (65536, 64), (65536, 1024), (1000000, 4096)):
    convolution(length, n)
