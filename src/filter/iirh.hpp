// IIR filter objects: the low level on arrays of their own.
#pragma once

#include "filter/iirl.hpp"
#include "frame/heap.hpp"

#include <cstdint>

namespace ark {

inline constexpr int iirMarker = 31725;

enum IirStructure { arbitraryOrder, cascade };

// Null also for what no memory could hold.
template <class T>
T* allocateArray(std::int64_t count)
{
    if (count > std::int64_t{PTRDIFF_MAX} / std::int64_t{sizeof(T)})
        return nullptr;
    return static_cast<T*>(heapAllocate(std::size_t(count) * sizeof(T)));
}

inline void releaseArrays(IirState& state)
{
    heapFree(state.tapState.taps);
    heapFree(state.dlyState.dlyl);
    state = {};
}

// The delay line's element, from its initialiser.
template <class Element>
Element elementOf(void (*)(const IirlTapState*, Element*, IirlDlyState*));

// size: the order, or the number of sections.
template <IirStructure structure, auto initTaps, auto initDelay, class Taps>
void iirInit(Where at, int iirType, const Taps* tapVals, int size, IirState* statePtr)
{
    using Element = decltype(elementOf(initDelay));
    constexpr bool isCascade = structure == cascade;
    if (!allGood(at, {{!statePtr, "statePtr==0"}, {!tapVals, "tapVals==0"}}) ||
        !allGood(at, {{isCascade ? size <= 0 : size < 0, isCascade ? "numQuads <= 0" : "order < 0"},
                      {!isIirType(iirType), badIirType},
                      {statePtr->initMarker == iirMarker,
                       "IIR filter state structure is already initialized! Use arkIirFree to free it"}}))
        return;
    const std::int64_t count = size, coefs = isCascade ? 6 * count : 2 * count + 2,
                       delays = isCascade ? 2 * count : count;
    *statePtr = {};
    Taps* const taps = delays <= INT_MAX ? allocateArray<Taps>(coefs) : nullptr;
    Element* const dlyl = taps ? allocateArray<Element>(delays) : nullptr;
    if (!dlyl) {
        heapFree(taps);
        return outOfMemory(at, noIirMemory);
    }
    std::memcpy(taps, tapVals, std::size_t(coefs) * sizeof(Taps));
    initTaps(iirType, taps, size, &statePtr->tapState);
    // A record that was not filled counts, too: a report handler may have cleared the status.
    const bool failed = !statusGood() || !statePtr->tapState.taps;
    statePtr->tapState.taps = taps;
    statePtr->dlyState.dlyl = dlyl;
    if (failed) {
        backtrace(at);
        return releaseArrays(*statePtr);
    }
    statePtr->initMarker = iirMarker;
    initDelay(&statePtr->tapState, dlyl, &statePtr->dlyState);
}

// One sample or a block, by the low-level function that does the same.
template <auto lowLevel, class... Arguments>
auto iir(Where at, const IirState* statePtr, Arguments... arguments)
{
    using Result = decltype(lowLevel(&statePtr->tapState, &statePtr->dlyState, arguments...));
    const auto traced = [at] {
        if (context().head.status != ARK_StatusOk)
            backtrace(at);
    };
    const bool ready = allGood(at, {{!statePtr, "statePtr==0"}}) &&
                       allGood(at, {{statePtr->initMarker != iirMarker, "IIR filter wasn't initialized"}});
    if constexpr (std::is_void_v<Result>) {
        if (ready) {
            lowLevel(&statePtr->tapState, &statePtr->dlyState, arguments...);
            traced();
        }
    } else {
        Result result{};
        if (ready) {
            result = lowLevel(&statePtr->tapState, &statePtr->dlyState, arguments...);
            traced();
        }
        return result;
    }
}

inline void iirFree(Where at, IirState* statePtr)
{
    if (!statePtr)
        return badArgument(at, "statePtr==0");
    if (statePtr->initMarker != iirMarker)
        return badArgument(at, "IIR filter wasn't initialized");
    releaseArrays(*statePtr);
}

} // namespace ark
