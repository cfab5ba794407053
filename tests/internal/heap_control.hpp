// Requests to the heap made to fail.
#pragma once

// While it lives, the first 'good' requests of all threads succeed and the next 'failing' ones do not.
struct FailingHeap {
    explicit FailingHeap(long good = 0, long failing = -1); // -1: all
    ~FailingHeap();

    bool hasFailed() const;
};
