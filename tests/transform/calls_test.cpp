// What all transforms have in common, on every member: order, flags, tables, status.
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>
#include <tuple>
#include <type_traits>

namespace {

using Messages = std::vector<std::string>;

// Room for a transform of order 3 in the widest type.
constexpr int safeOrder = 3;
struct Arguments {
    int order, flags;
    bool nulls = false;
    int scaleMode = ARK_SATURATE, factor = 0;
    alignas(16) unsigned char arrays[4][160] = {};
    int array = 0, number = 0;

    template <class T>
    T next()
    {
        if constexpr (std::is_same_v<T, int*>)
            return &factor;
        else if constexpr (std::is_pointer_v<T>)
            return nulls ? nullptr : reinterpret_cast<T>(arrays[array++]);
        else
            return number++ == 0 ? order : number == 2 ? flags : scaleMode;
    }
};

template <auto member>
struct Call;
template <class... Parameters, void (*member)(Parameters...)>
struct Call<member> {
    static void call(Arguments& arguments)
    {
        std::apply(member, std::tuple<Parameters...>{arguments.next<Parameters>()...});
    }
};

enum Kind { complex, real, toPacked, fromPacked };
struct Member {
    const char* name;
    Kind kind;
    void (*call)(Arguments&);
};

#define MEMBER(kind, name)                                                                                             \
    Member { #name, kind, Call < name> ::call }
#define MEMBERS(s, c)                                                                                                  \
    MEMBER(complex, ark##c##Fft), MEMBER(complex, ark##c##FftNip), MEMBER(complex, ark##c##rFft),                      \
        MEMBER(complex, ark##c##rFftNip), MEMBER(real, ark##s##RealFft), MEMBER(real, ark##s##RealFftNip),             \
        MEMBER(real, ark##s##CcsFft), MEMBER(real, ark##s##CcsFftNip), MEMBER(toPacked, ark##s##RealFftl),             \
        MEMBER(toPacked, ark##s##RealFftlNip), MEMBER(fromPacked, ark##s##CcsFftl),                                    \
        MEMBER(fromPacked, ark##s##CcsFftlNip), MEMBER(real, ark##s##Real2Fft), MEMBER(real, ark##s##Real2FftNip),     \
        MEMBER(real, ark##s##Ccs2Fft), MEMBER(real, ark##s##Ccs2FftNip)

const Member members[] = {MEMBERS(s, c), MEMBERS(d, z), MEMBERS(w, v)};

int goodFlags(const Member& member)
{
    return member.kind == toPacked     ? ARK_Forw | ARK_OutRCPack
           : member.kind == fromPacked ? ARK_Forw | ARK_InRCPerm
                                       : int{ARK_Forw};
}

class Transforms : public testing::Test {
protected:
    // Calls with data of ones; the arguments afterwards say whether the data have changed.
    static bool changes(const Member& member, Arguments arguments)
    {
        for (auto& array : arguments.arrays)
            std::fill(std::begin(array), std::end(array), (unsigned char)(1));
        const Arguments before = arguments;
        member.call(arguments);
        return std::memcmp(arguments.arrays, before.arrays, sizeof before.arrays) != 0;
    }

    Reports reports;
};

TEST_F(Transforms, CheckOrderFlagsAndStatus)
{
    for (const Member& member : members) {
        SCOPED_TRACE(member.name);
        const int good = goodFlags(member);
        const auto made = [&](int order, int flags) {
            EXPECT_FALSE(changes(member, {order, flags}));
            return reports.messages();
        };
        EXPECT_EQ(made(-1, good), Messages{"order<0"});
        EXPECT_EQ(made(32, good), Messages{"order>31"});
        EXPECT_EQ(made(INT_MIN, ARK_Init), Messages{"order<0"});
        EXPECT_EQ(made(safeOrder, good | ARK_Inv), Messages{"ARK_Forw and ARK_Inv"});
        EXPECT_EQ(made(0, good & ~ARK_Forw), Messages{"no ARK_Forw or ARK_Inv"});

        constexpr int in = ARK_InBitRev, out = ARK_OutBitRev, no = ARK_NoBitRev;
        const std::pair<int, const char*> rules[] = {{in | out, "ARK_InBitRev and ARK_OutBitRev"},
                                                     {in | out | no, "ARK_InBitRev and ARK_OutBitRev"},
                                                     {in | no, "ARK_InBitRev and ARK_NoBitRev"},
                                                     {out | no, "ARK_OutBitRev and ARK_NoBitRev"}};
        for (const auto& [flags, message] : rules)
            if (member.kind == complex) {
                EXPECT_EQ(made(safeOrder, good | flags), Messages{message});
                EXPECT_EQ(made(safeOrder, flags), (Messages{"no ARK_Forw or ARK_Inv", message})) << "all are reported";
            }
        if (member.kind == toPacked) {
            EXPECT_EQ(made(safeOrder, ARK_Forw | ARK_InRCPack), Messages{"no ARK_OutRCPack or ARK_OutRCPerm"});
            EXPECT_EQ(made(safeOrder, good | ARK_OutRCPerm), Messages{"ARK_OutRCPack and ARK_OutRCPerm"});
        }
        if (member.kind == fromPacked) {
            EXPECT_EQ(made(safeOrder, ARK_Inv | ARK_OutRCPerm), Messages{"no ARK_InRCPack or ARK_InRCPerm"});
            EXPECT_EQ(made(safeOrder, good | ARK_InRCPack), Messages{"ARK_InRCPack and ARK_InRCPerm"});
        }

        arkSetErrStatus(-2);
        EXPECT_EQ(made(safeOrder, good), Messages{});
        const int foreign = ~0x17FF | (member.kind == complex ? 0 : in | out | no);
        EXPECT_TRUE(changes(member, {safeOrder, good | foreign})) << "other bits are ignored";
        EXPECT_EQ(reports.messages(), Messages{});
    }
}

TEST_F(Transforms, InitAndFreeLookAtNothingElse)
{
    for (const Member& member : members) {
        SCOPED_TRACE(member.name);
        for (int order = 0; order <= 12; order += 3) {
            EXPECT_FALSE(changes(member, {order, ARK_Init, true}));
            EXPECT_EQ(arkGetErrStatus(), ARK_StatusOk);
        }
        arkSetErrStatus(-5);
        for (const int order : {3, 12, 31, -1, 32, INT_MIN, INT_MAX})
            EXPECT_FALSE(changes(member, {order, ARK_Free | ARK_Init | ARK_Forw, true}));
        EXPECT_EQ(reports.messages(), Messages{});
        EXPECT_TRUE(changes(member, {safeOrder, goodFlags(member)})) << "is built again";
        EXPECT_EQ(reports.messages(), Messages{});
    }
}

TEST_F(Transforms, ReportTheFirstNullPointerBeforeTheFlags)
{
    FloatCplx x[2] = {};
    float r[2] = {};
    arkcFftNip(x, nullptr, 1, 0);
    EXPECT_EQ(reports.messages(), Messages{"outSamps==0"});
    arkcrFft(r, nullptr, 1, 0);
    EXPECT_EQ(reports.messages(), Messages{"imSamps==0"});
    arkcrFftNip(r, nullptr, nullptr, r, 1, 0);
    EXPECT_EQ(reports.messages(), Messages{"imInSamps==0"});
    arkcrFftNip(r, r, nullptr, nullptr, 1, 0);
    EXPECT_EQ(reports.messages(), Messages{"reOutSamps==0"});
    arkcrFftNip(r, r, r, nullptr, 1, 0);
    EXPECT_EQ(reports.messages(), Messages{"imOutSamps==0"});
    arksReal2Fft(r, nullptr, 1, 0);
    EXPECT_EQ(reports.messages(), Messages{"ySamps==0"});
    arksReal2FftNip(r, r, nullptr, nullptr, 1, 0);
    EXPECT_EQ(reports.messages(), Messages{"xOutSamps==0"});
    arksCcs2FftNip(x, nullptr, nullptr, nullptr, 1, 0);
    EXPECT_EQ(reports.messages(), Messages{"yInSamps==0"});
    arkwReal2FftNip(nullptr, nullptr, nullptr, nullptr, 1, 0, 9, nullptr);
    EXPECT_EQ(reports.messages(), Messages{"xInSamps==0"});
}

} // namespace
