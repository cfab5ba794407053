// While it lives, the heap has so many more blocks to give. For all threads: on Windows, reaching a thread_local calls
// malloc.
#pragma once

#include <climits>

extern int heapBlocksLeft;

struct EmptyHeap {
    explicit EmptyHeap(int blocks = 0) { heapBlocksLeft = blocks; }
    ~EmptyHeap() { heapBlocksLeft = INT_MAX; }
};
