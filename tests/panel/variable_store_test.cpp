#include "store/variable_store.h"

#include "store/pending_writes.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

namespace panel {
namespace {

TEST(VariableStore, WordsAreBigEndianAndEndAtTheBound) {
    StoreWord(0x0100, 0x1234);
    EXPECT_EQ(ReadByte(0x0200), 0x12);
    StoreLowByte(0x0100, 0xFF);
    EXPECT_EQ(ReadWord(0x0100), 0x12FF);

    StoreWord(0x70FE, 0x0102);
    for (const std::uint16_t address : {0x70FF, 0x8000, 0xFFFF}) {
        StoreWord(address, 0x1111);
        EXPECT_EQ(ReadWord(address), 0) << address;
    }
    std::array<std::uint8_t, 4> bytes{9, 9, 9, 9};
    ReadBytes(StoreByteCount - 2, bytes);
    EXPECT_EQ(bytes, (std::array<std::uint8_t, 4>{1, 2, 0, 0}));
    StoreBytes(StoreByteCount - 1, bytes);
    EXPECT_EQ(ReadWord(0x70FE), 0x0101);
}

TEST(ShadowStore, DiffersUntilTheBytesAreSynced) {
    StoreWord(0x0200, 0x0102);
    EXPECT_TRUE(WordDiffers(0x0200));
    SyncBytes(0x0401, 1);
    EXPECT_EQ(ShadowWord(0x0200), 0x0002);
    EXPECT_TRUE(BytesDiffer(0x0400, 1));
    SyncWord(0x0200);
    EXPECT_FALSE(WordDiffers(0x0200));
    SyncBytes(StoreByteCount - 1, 1000);
    EXPECT_FALSE(BytesDiffer(StoreByteCount, 1000)) << "what does not exist does not differ";
}

TEST(PendingWrites, GivesTheNewestFirstAndDropsWhatHasNoRoom) {
    PendingWrites pending;
    for (std::uint16_t address = 0x7000; address < 0x7008; ++address) EXPECT_TRUE(pending.append(address));
    EXPECT_FALSE(pending.append(0x7008));
    EXPECT_EQ(pending.takeNewest(), 0x7007);
    EXPECT_TRUE(pending.append(0x7009));
    for (const std::uint16_t expected : {0x7009, 0x7006, 0x7005, 0x7004, 0x7003, 0x7002, 0x7001, 0x7000})
        EXPECT_EQ(pending.takeNewest(), expected);
    EXPECT_FALSE(pending.takeNewest());
}

TEST(PendingWrites, LosesNothingBetweenTwoThreads) {
    PendingWrites pending;
    constexpr int writes = 20000;
    std::thread writer([&pending] {
        for (int i = 0; i < writes; ++i)
            while (!pending.append(static_cast<std::uint16_t>(i % 0x70FF))) std::this_thread::yield();
    });
    int taken = 0;
    while (taken < writes) taken += pending.takeNewest().has_value();
    writer.join();
    EXPECT_FALSE(pending.takeNewest());
}

} // namespace
} // namespace panel
