// What every transform has in common: the flag word, the order, tables and working buffers.
#pragma once

#include "frame/kernels.hpp"
#include "frame/report.hpp"
#include "transform/roots.hpp"

#include <arkpx/transform.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace ark {

// A kind of transform: which flags it looks at and what it needs.
struct TransformKind {
    bool bitOrder, inPacking, outPacking; // flags
    int halvings;                         // 1: a complex transform of half the length and a recombination around it
    bool twoSignals;                      // needs room for a spectrum beside the caller's arrays
};
inline constexpr TransformKind cplxKind{true, false, false, 0, false};
inline constexpr TransformKind ccsKind{false, false, false, 1, false};
inline constexpr TransformKind toPackedKind{false, false, true, 1, false};
inline constexpr TransformKind fromPackedKind{false, true, false, 1, false};
inline constexpr TransformKind twoSignalsKind{false, false, false, 0, true};

inline bool has(int flags, int all) { return (flags & all) == all; }

// Reports every rule that the flag word breaks.
[[gnu::cold, gnu::noinline]] inline bool reportFlags(Where at, const TransformKind& kind, int flags)
{
    const auto both = [=](bool applies, int a, int b) { return applies && has(flags, a | b); };
    const auto neither = [=](bool applies, int a, int b) { return applies && !(flags & (a | b)); };
    const bool inBitRev = has(flags, ARK_InBitRev), outBitRev = has(flags, ARK_OutBitRev);
    const Check checks[] = {
        {both(true, ARK_Forw, ARK_Inv), "ARK_Forw and ARK_Inv"},
        {neither(true, ARK_Forw, ARK_Inv), "no ARK_Forw or ARK_Inv"},
        {both(kind.bitOrder, ARK_InBitRev, ARK_OutBitRev), "ARK_InBitRev and ARK_OutBitRev"},
        {both(kind.bitOrder && !outBitRev, ARK_InBitRev, ARK_NoBitRev), "ARK_InBitRev and ARK_NoBitRev"},
        {both(kind.bitOrder && !inBitRev, ARK_OutBitRev, ARK_NoBitRev), "ARK_OutBitRev and ARK_NoBitRev"},
        {both(kind.inPacking, ARK_InRCPack, ARK_InRCPerm), "ARK_InRCPack and ARK_InRCPerm"},
        {neither(kind.inPacking, ARK_InRCPack, ARK_InRCPerm), "no ARK_InRCPack or ARK_InRCPerm"},
        {both(kind.outPacking, ARK_OutRCPack, ARK_OutRCPerm), "ARK_OutRCPack and ARK_OutRCPerm"},
        {neither(kind.outPacking, ARK_OutRCPack, ARK_OutRCPerm), "no ARK_OutRCPack or ARK_OutRCPerm"},
    };
    reportFailed(at, checks, std::size(checks));
    return false;
}

// The same rules, quickly: one direction, at most one bit order, one layout for each side that is packed.
inline bool keepsRules(const TransformKind& kind, int flags)
{
    const auto most = [=](int group) { return (flags & group & ((flags & group) - 1)) == 0; };
    const auto one = [=](int group) { return (flags & group) != 0 && most(group); };
    return one(ARK_Forw | ARK_Inv) && (!kind.bitOrder || most(ARK_NoBitRev | ARK_InBitRev | ARK_OutBitRev)) &&
           (!kind.inPacking || one(ARK_InRCPack | ARK_InRCPerm)) &&
           (!kind.outPacking || one(ARK_OutRCPack | ARK_OutRCPerm));
}
inline bool flagsGood(Where at, const TransformKind& kind, int flags)
{
    return keepsRules(kind, flags) || reportFlags(at, kind, flags);
}

inline bool isOrder(int order) { return order >= 0 && order < orders; }

inline bool orderGood(Where at, int order)
{
    return allGood(at, {{order < 0, "order<0"}, {order >= orders, "order>31"}});
}

// ---- tables and buffers of the floating-point transforms ----

template <class R>
TransformTables& transformTables()
{
    return context().caches.transform[sizeof(R) == sizeof(double)];
}

// Of one order, and the buffers, which serve all orders.
template <class R>
void release(const TransformKind& kind, int order)
{
    if (isOrder(order) && order >= kind.halvings)
        transformTables<R>().release(order - kind.halvings);
    if (isOrder(order))
        context().caches.working.release();
}

// What one call works with. Null where the order is too small to need it.
template <class R>
struct Workspace {
    const R* fft = nullptr;
    R* scratch = nullptr;
    const R* recombination = nullptr;
    R* spectrum = nullptr;
    bool isComplete = false;
};

// What is there already.
template <class R>
[[gnu::always_inline]] inline Workspace<R> present(const TransformKind& kind, int order)
{
    Workspace<R> space;
    const int fftOrder = order - kind.halvings;
    if (fftOrder < 1) {
        space.isComplete = true;
        return space;
    }
    const WorkingBuffers& working = context().caches.working;
    const TransformTables& tables = transformTables<R>();
    const std::size_t scratch = tables.scratch[fftOrder];
    space.fft = tables.fft[fftOrder].present<R>();
    space.isComplete = space.fft != nullptr;
    if (kind.halvings) {
        space.recombination = tables.recombination[fftOrder].present<R>();
        space.isComplete &= space.recombination != nullptr;
    }
    if (kind.twoSignals) {
        space.spectrum = working.spectrum.present<R>(std::size_t{2} << fftOrder);
        space.isComplete &= space.spectrum != nullptr;
    }
    if (scratch) {
        space.scratch = working.scratch.present<R>(scratch);
        space.isComplete &= space.scratch != nullptr;
    }
    return space;
}

// Makes what is missing. False when there is no memory.
template <class R>
bool obtain(const TransformKind& kind, int order, Workspace<R>& space)
{
    space = present<R>(kind, order);
    if (space.isComplete)
        return true;
    const int fftOrder = order - kind.halvings;
    if ((std::uint64_t{2 * sizeof(R)} << fftOrder) > std::uint64_t{PTRDIFF_MAX})
        return false; // nobody can have such an array, and the sizes of the tables would overflow
    WorkingBuffers& working = context().caches.working;
    TransformTables& tables = transformTables<R>();
    const FftKernels<R>& kernel = kernels<FftKernels<R>>();
    const std::size_t N = std::size_t{1} << fftOrder;
    const bool made =
        tables.fft[fftOrder].table<R>([&] { return kernel.tableSize(fftOrder); },
                                      [&](R* table) {
                                          kernel.fillTable(fftOrder, table);
                                          tables.scratch[fftOrder] = kernel.scratchSize(fftOrder);
                                      }) &&
        (!kind.halvings || tables.recombination[fftOrder].table<R>(
                               [=] { return N; }, [=](R* table) { fillRecombinationTable(fftOrder, table); })) &&
        (!kind.twoSignals || working.spectrum.buffer<R>(2 * N)) &&
        (!tables.scratch[fftOrder] || working.scratch.buffer<R>(tables.scratch[fftOrder]));
    if (made)
        space = present<R>(kind, order);
    return made;
}

// The private tables of this precision give way once: callers hold no pointers to them.
template <class R>
[[gnu::cold, gnu::noinline]] bool obtainAgain(Where at, const TransformKind& kind, int order, Workspace<R>& space)
{
    transformTables<R>().release();
    if (obtain(kind, order, space))
        return true;
    outOfMemory(at, "No working Twd memory");
    return false;
}

template <class R>
bool obtainOrReport(Where at, const TransformKind& kind, int order, Workspace<R>& space)
{
    return obtain(kind, order, space) || obtainAgain(at, kind, order, space);
}

// The frame of every floating-point transform, check by check: true when it is to be computed.
template <class R>
[[gnu::cold, gnu::noinline]] bool readyAfterChecks(Where at, const TransformKind& kind, const Check* nulls,
                                                   std::size_t count, int order, int flags)
{
    if (has(flags, ARK_Free)) {
        release<R>(kind, order);
        return false;
    }
    Workspace<R> space;
    if (!orderGood(at, order) || !obtainOrReport(at, kind, order, space) || has(flags, ARK_Init))
        return false;
    for (std::size_t i = 0; i < count; i++)
        if (!firstGood(at, {nulls[i]}))
            return false;
    return flagsGood(at, kind, flags);
}

// Complete when the transform is to be computed. Short transforms take less time than the checks one by one: a call
// that has nothing to report and finds everything there is told apart at once.
template <class R, std::size_t count>
[[gnu::always_inline]] inline Workspace<R> ready(Where at, const TransformKind& kind, const Check (&nulls)[count],
                                                 int order, int flags)
{
    const bool argumentsGood = isOrder(order) && noneFailed(nulls);
    Workspace<R> space;
    if (isOrder(order)) [[likely]]
        space = present<R>(kind, order);
    const bool isGood = argumentsGood && space.isComplete && statusGood() && !(flags & (ARK_Free | ARK_Init)) &&
                        keepsRules(kind, flags);
    if (!isGood) [[unlikely]] {
        const auto copies = std::to_array(nulls);
        if (!readyAfterChecks<R>(at, kind, copies.data(), count, order, flags) || !argumentsGood)
            return {};
        space = present<R>(kind, order);
    }
    return space;
}

// The factor that the flags ask for: 1 or 1/N, exactly.
template <class R>
inline constexpr auto negativePowersOfTwo = [] {
    std::array<R, orders> powers{};
    for (int i = 0; i < orders; i++)
        powers[std::size_t(i)] = R(1) / R(std::uint64_t{1} << i);
    return powers;
}();
template <class R>
R scaleOf(int order, int flags)
{
    return has(flags, ARK_Inv) && !has(flags, ARK_NoScale) ? negativePowersOfTwo<R>[std::size_t(order)] : R(1);
}

template <class Directions>
auto inDirection(const Directions& directions, int flags)
{
    return has(flags, ARK_Inv) ? directions.inverse : directions.forward;
}

} // namespace ark
