// Vector arithmetic of the 16-bit types.
#pragma once

#include "frame/types.hpp"
#include "vector/arkarith.hpp"
#include "vector/scale.hpp"

namespace ark {

struct ShortAdd {
    static constexpr SourceNames names = ownNames;
    static constexpr ShortOperation real = shortAdd, complex = shortAdd;
};

struct ShortSub {
    static constexpr SourceNames names = subNames;
    static constexpr ShortOperation real = shortSub, complex = shortSub;
};

struct ShortMpy {
    static constexpr SourceNames names = ownNames;
    static constexpr ShortOperation real = shortMpy, complex = shortCplxMpy;
};

template <class Operation, class T>
void scaledForm(Where at, const T* a, ShortOperand b, T* dst, int n, Scaling scaling)
{
    constexpr ShortOperation operation = isComplex<T> ? Operation::complex : Operation::real;
    scaledArithmetic(at, operation, partsOf(a), b, partsOf(dst), std::ptrdiff_t{n} * parts<T>, scaling);
}

template <class Operation, class T>
void form1(Where at, T val, T* srcDst, int n, int scaleMode, int* scaleFactor)
{
    if (!allGood(at, {{n <= 0, "n<=0"}, {!srcDst, "dst==0"}}))
        return;
    T repeated[64 / sizeof(T)]; // one widest vector
    for (T& element : repeated)
        element = val;
    scaledForm<Operation>(at, srcDst, {partsOf(repeated), 0}, srcDst, n, {scaleMode, scaleFactor});
}

template <class Operation, class T>
void form2(Where at, const T* src, T* srcDst, int n, int scaleMode, int* scaleFactor)
{
    if (allGood(at, {{n <= 0, "n<=0"}, {!src, Operation::names.src}, {!srcDst, "dst==0"}}))
        scaledForm<Operation>(at, srcDst, {partsOf(src), 1}, srcDst, n, {scaleMode, scaleFactor});
}

template <class Operation, class T>
void form3(Where at, const T* srcA, const T* srcB, T* dst, int n, int scaleMode, int* scaleFactor)
{
    if (allGood(at,
                {{n <= 0, "n<=0"}, {!srcA, Operation::names.srcA}, {!srcB, Operation::names.srcB}, {!dst, "dst==0"}}))
        scaledForm<Operation>(at, srcA, {partsOf(srcB), 1}, dst, n, {scaleMode, scaleFactor});
}

} // namespace ark
