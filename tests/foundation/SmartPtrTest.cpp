#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "foundation/threads/CfMutableArray.h"
#include "foundation/threads/SmartPtr.h"

namespace quelm {

namespace {

struct Record : CReferenceCounted {
    explicit Record(int& ends) : endings(&ends) {}
    Record(const Record&) = default;
    Record& operator=(const Record&) = default;
    ~Record() override { ++*endings; }

    int* endings;
};

using RecordPtr = CSmartPtr<Record>;

std::int32_t ownersOf(Record& record) {
    CRefTraits::AddRef(&record);
    return record.Release();
}

TEST(SmartPtr, AdoptsTheCreatorsReferenceAndEndsTheObjectOnce) {
    int endings = 0;
    {
        const auto record = MakeSmart<Record>(endings);
        EXPECT_EQ(ownersOf(*record), 1);
    }
    EXPECT_EQ(endings, 1);
}

TEST(SmartPtr, ResettingToTheHeldObjectKeepsIt) {
    int endings = 0;
    auto record = MakeSmart<Record>(endings);
    record.Reset(record.Get());
    EXPECT_EQ(endings, 0);
    EXPECT_EQ(ownersOf(*record), 1);
    record.Reset();
    EXPECT_EQ(endings, 1);
    EXPECT_FALSE(record);
    record.Reset(nullptr);
    EXPECT_EQ(endings, 1);
}

TEST(SmartPtr, ResettingTakesAReferenceOfItsOwn) {
    int endings = 0;
    const auto first = MakeSmart<Record>(endings);
    auto second = MakeSmart<Record>(endings);
    second.Reset(first.Get());
    EXPECT_EQ(endings, 1);
    EXPECT_EQ(first, second);
    EXPECT_EQ(ownersOf(*first), 2);
}

TEST(SmartPtr, CopiesShareAndMovesHandOver) {
    int endings = 0;
    auto first = MakeSmart<Record>(endings);
    RecordPtr copy = first;
    EXPECT_EQ(ownersOf(*first), 2);
    RecordPtr moved = std::move(copy);
    EXPECT_EQ(ownersOf(*first), 2);
    const RecordPtr& itself = moved;
    moved = itself;
    EXPECT_EQ(ownersOf(*first), 2);
    first = std::move(moved);
    EXPECT_EQ(ownersOf(*first), 1);
    first = RecordPtr();
    EXPECT_EQ(endings, 1);
}

TEST(ReferenceCounted, ACopiedObjectHasOwnersOfItsOwn) {
    int endings = 0;
    const auto original = MakeSmart<Record>(endings);
    const auto secondOwner = original;
    {
        const auto copy = MakeSmart<Record>(*original);
        EXPECT_EQ(ownersOf(*copy), 1);
        *copy = *original;
        EXPECT_EQ(ownersOf(*copy), 1);
    }
    EXPECT_EQ(endings, 1);
    EXPECT_EQ(ownersOf(*original), 2);
}

TEST(ReferenceCounted, ThreadsShareAnObjectThatEndsWithTheLastOfThem) {
    int endings = 0;
    auto record = MakeSmart<Record>(endings);
    std::vector<std::thread> owners;
    for (int i = 0; i < 4; ++i) {
        owners.emplace_back([own = record] {
            for (int turn = 0; turn < 1000; ++turn) {
                const RecordPtr copy = own;
            }
        });
    }
    record.Reset();
    for (auto& owner : owners)
        owner.join();
    owners.clear();
    EXPECT_EQ(endings, 1);
}

struct CStyleObject {
    std::string name;
    std::string* calls;
};
void CfRetain(CStyleObject* object) {
    *object->calls += "+" + object->name;
}
void CfRelease(CStyleObject* object) {
    *object->calls += "-" + object->name;
}

TEST(CfRefTraits, TakesTheNewObjectBeforeDroppingTheOld) {
    std::string calls;
    CStyleObject a{"a", &calls};
    CStyleObject b{"b", &calls};
    {
        CSmartPtr<CStyleObject, CfRefTraits> pointer(&a);
        EXPECT_EQ(calls, "");
        pointer.Reset(&b);
        EXPECT_EQ(calls, "+b-a");
        pointer.Reset(&b);
        EXPECT_EQ(calls, "+b-a+b-b");
    }
    EXPECT_EQ(calls, "+b-a+b-b-b");
}

TEST(CfMutableArray, TheArrayLivesOnWithWhoeverSharesIt) {
    CSmartPtr<CfObject<Array>, CfRefTraits> shared;
    {
        CfMutableArray array;
        array->emplace_back("one");
        shared.Reset(array.Get());
        array->emplace_back(2);
    }
    EXPECT_EQ(shared->value, (Array{"one", 2}));
}

}  // namespace

}  // namespace quelm
