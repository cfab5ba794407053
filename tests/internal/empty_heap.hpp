// While it lives, the thread's heap has so many more blocks to give.
#pragma once

#include <climits>

extern thread_local int heapBlocksLeft;

struct EmptyHeap {
    explicit EmptyHeap(int blocks = 0) { heapBlocksLeft = blocks; }
    ~EmptyHeap() { heapBlocksLeft = INT_MAX; }
};
