// Arrays that end where memory ends: what reads or writes behind one crashes, what writes before one is found out.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/mman.h>
#endif

template <class T>
class Guarded {
public:
    explicit Guarded(std::size_t size) : size_{size}
    {
        accessible_ = (size * sizeof(T) + guardBytes + page - 1) / page * page;
#ifdef _WIN32
        base_ = static_cast<unsigned char*>(VirtualAlloc(nullptr, accessible_ + page, MEM_RESERVE, PAGE_NOACCESS));
        if (!base_ || !VirtualAlloc(base_, accessible_, MEM_COMMIT, PAGE_READWRITE))
            throw std::bad_alloc{};
#else
        void* const mapped = mmap(nullptr, accessible_ + page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        base_ = static_cast<unsigned char*>(mapped);
        if (mapped == MAP_FAILED || mprotect(base_, accessible_, PROT_READ | PROT_WRITE) != 0)
            throw std::bad_alloc{};
#endif
        std::memset(base_, guardByte, accessible_);
    }
    Guarded(const std::vector<T>& values) : Guarded(values.size())
    {
        for (std::size_t i = 0; i < size_; i++)
            data()[i] = values[i];
    }
    Guarded(const Guarded&) = delete;
    Guarded& operator=(const Guarded&) = delete;
    ~Guarded()
    {
        for (const unsigned char* byte = front(); byte != front() - guardBytes; byte--)
            if (byte[-1] != guardByte) {
                ADD_FAILURE() << "written " << front() - byte + 1 << " bytes before an array";
                break;
            }
#ifdef _WIN32
        VirtualFree(base_, 0, MEM_RELEASE);
#else
        munmap(base_, accessible_ + page);
#endif
    }

    T* data() { return reinterpret_cast<T*>(front()); }
    T* begin() { return data(); }
    T* end() { return data() + size_; }
    T& operator[](std::size_t i) { return data()[i]; }
    std::vector<T> values() { return {begin(), end()}; }

private:
    static constexpr std::size_t page = 4096, guardBytes = 128;
    static constexpr unsigned char guardByte = 0xA5;

    unsigned char* front() const { return base_ + accessible_ - size_ * sizeof(T); }

    std::size_t size_, accessible_;
    unsigned char* base_;
};
