#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "foundation/threads/CfMutableArray.h"

namespace {

using namespace quelm;

struct Record : CReferenceCounted {
    explicit Record(int& ends) : endings(ends) {}
    ~Record() override { ++endings; }

    int& endings;
};

std::int32_t ownersOf(const CSmartPtr<Record>& record) {
    CRefTraits::AddRef(record.Get());
    return record->Release();
}

TEST(SmartPtr, ResettingTakesTheNewObjectAndEndsTheOldOnce) {
    int endings = 0;
    auto record = MakeSmart<Record>(endings);
    record.Reset(record.Get());
    auto other = MakeSmart<Record>(endings);
    EXPECT_EQ(endings, 0);
    other.Reset(record.Get());
    EXPECT_EQ(endings, 1);
    EXPECT_EQ(ownersOf(record), 2);
    other.Reset();
    record.Reset();
    record.Reset();
    EXPECT_EQ(endings, 2);
}

TEST(SmartPtr, CopiesShareMovesHandOverAndACopiedObjectHasOwnersOfItsOwn) {
    int endings = 0;
    auto first = MakeSmart<Record>(endings);
    auto copy = first;
    auto moved = std::move(copy);
    EXPECT_EQ(ownersOf(first), 2);
    const auto copiedObject = MakeSmart<Record>(*first);
    EXPECT_EQ(ownersOf(copiedObject), 1);
    first = std::move(moved);
    EXPECT_EQ(ownersOf(first), 1);
    first = {};
    EXPECT_EQ(endings, 1);
}

TEST(SmartPtr, ThreadsShareAnObjectThatEndsWithTheLastOfThem) {
    int endings = 0;
    auto record = MakeSmart<Record>(endings);
    std::vector<std::jthread> owners;
    for (int i = 0; i < 4; ++i) {
        owners.emplace_back([own = record] {
            for (int turn = 0; turn < 1000; ++turn)
                const auto copy = own;
        });
    }
    record.Reset();
    owners.clear();
    EXPECT_EQ(endings, 1);
}

TEST(CfMutableArray, TheArrayLivesOnWithWhoeverSharesIt) {
    CSmartPtr<CfObject<Array>, CfRefTraits> shared;
    {
        CfMutableArray array;
        shared.Reset(array.Get());
        array->emplace_back(2);
    }
    EXPECT_EQ(shared->value, Array{2});
}

}  // namespace
