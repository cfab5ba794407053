// Tables that the threads of a process share without locks.
#pragma once

#include "frame/heap.hpp"

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace ark {

// A table of one length; nobody changes it once it is filled.
template <class R>
struct alignas(64) SharedTable {
    int length;

    R* values() { return reinterpret_cast<R*>(this + 1); }

    // Null when there is no memory.
    static SharedTable* make(int length, std::uint64_t count)
    {
        constexpr std::uint64_t most = PTRDIFF_MAX - sizeof(SharedTable);
        if (count > most / sizeof(R))
            return nullptr;
        auto* const table =
            static_cast<SharedTable*>(heapAllocate(sizeof(SharedTable) + std::size_t(count) * sizeof(R)));
        if (table)
            table->length = length;
        return table;
    }
};

// A few tables of the lengths used last. Whoever uses one has taken it off the shelf, so that nobody can free it under
// him; who comes meanwhile makes one of his own, and both are on the shelf thereafter. An atomic exchange is all that
// it takes.
template <class Table>
class Shelf {
public:
    // Null when there is none of this length.
    Table* take(int length)
    {
        for (std::atomic<Table*>& place : places_) {
            Table* const table = place.exchange(nullptr, std::memory_order_acquire);
            if (!table)
                continue;
            if (table->length == length)
                return table;
            Table* nobody = nullptr;
            if (!place.compare_exchange_strong(nobody, table, std::memory_order_acq_rel, std::memory_order_relaxed))
                put(table);
        }
        return nullptr;
    }

    // To the front; the others move up to the next gap, and the last goes where there is none.
    void put(Table* table)
    {
        for (std::atomic<Table*>& place : places_) {
            table = place.exchange(table, std::memory_order_acq_rel);
            if (!table)
                return;
        }
        heapFree(table);
    }

    void clear()
    {
        for (std::atomic<Table*>& place : places_)
            heapFree(place.exchange(nullptr, std::memory_order_acquire));
    }

private:
    std::atomic<Table*> places_[8]{};
};

// A table off its shelf while it is in use; where there is none, one of count() elements is made by fill(R* values).
// False when there is no memory.
template <class R>
class Borrowed {
public:
    using Table = SharedTable<R>;

    template <class Count, class Fill>
    Borrowed(Shelf<Table>& shelf, int length, Count count, Fill fill) : shelf_{shelf},
                                                                        table_{shelf.take(length)}
    {
        if (table_)
            return;
        table_ = Table::make(length, count());
        if (table_)
            fill(table_->values());
    }
    ~Borrowed()
    {
        if (table_)
            shelf_.put(table_);
    }
    Borrowed(const Borrowed&) = delete;
    Borrowed& operator=(const Borrowed&) = delete;

    explicit operator bool() const { return table_ != nullptr; }
    const R* values() const { return table_->values(); }

private:
    Shelf<Table>& shelf_;
    Table* table_;
};

} // namespace ark
