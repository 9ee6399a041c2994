// Freed model objects' blocks are kept per thread and size for the next object.
#include "core/VdObjectPool.h"
#include "core/VdFieldDef.h"
#include "core/VdSelectParser.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace pool = vd::pool;

namespace {

// Runs body on a thread of its own, whose cache starts empty.
template <class F> void OnFreshThread(F body)
{
    std::thread thread(body);
    thread.join();
}

#define SKIP_WITHOUT_POOL()                                                                        \
    if (!pool::Enabled())                                                                          \
    GTEST_SKIP() << "blocks are not kept with the address sanitizer"

} // namespace

TEST(VdObjectPool, AReleasedBlockServesTheNextObjectOfItsSize)
{
    SKIP_WITHOUT_POOL();
    OnFreshThread([] {
        void* first = pool::Allocate(100);
        pool::Release(first, 100);
        EXPECT_EQ(pool::KeptBlocks(100), 1u);
        EXPECT_EQ(pool::KeptBytes(), 112u);
        // 100 and 110 bytes round to the same 112-byte class.
        void* second = pool::Allocate(110);
        EXPECT_EQ(second, first);
        EXPECT_EQ(pool::KeptBlocks(100), 0u);
        pool::Release(second, 110);
    });
}

TEST(VdObjectPool, OtherSizesAreKeptApart)
{
    SKIP_WITHOUT_POOL();
    OnFreshThread([] {
        void* small = pool::Allocate(32);
        pool::Release(small, 32);
        void* larger = pool::Allocate(64);
        EXPECT_NE(larger, small);
        EXPECT_EQ(pool::KeptBlocks(32), 1u);
        pool::Release(larger, 64);
        EXPECT_EQ(pool::KeptBlocks(64), 1u);
    });
}

TEST(VdObjectPool, KeepsAtMostAThousandAndTwentyFourBlocksOfOneSize)
{
    SKIP_WITHOUT_POOL();
    OnFreshThread([] {
        std::vector<void*> blocks;
        for (int i = 0; i < 1100; ++i)
            blocks.push_back(pool::Allocate(48));
        for (void* block : blocks)
            pool::Release(block, 48);
        EXPECT_EQ(pool::KeptBlocks(48), 1024u);
    });
}

TEST(VdObjectPool, ObjectsOverSixHundredAndFortyBytesGoStraightToTheHeap)
{
    SKIP_WITHOUT_POOL();
    OnFreshThread([] {
        void* at = pool::Allocate(640);
        pool::Release(at, 640);
        EXPECT_EQ(pool::KeptBlocks(640), 1u);
        void* big = pool::Allocate(641);
        pool::Release(big, 641);
        EXPECT_EQ(pool::KeptBlocks(641), 0u);
    });
}

TEST(VdObjectPool, ABlockFreedOnAnotherThreadIsKeptThere)
{
    SKIP_WITHOUT_POOL();
    void* block = pool::Allocate(200);
    std::atomic<std::size_t> kept{0};
    OnFreshThread([&] {
        pool::Release(block, 200);
        kept = pool::KeptBlocks(200);
    });
    EXPECT_EQ(kept.load(), 1u);
}

TEST(VdObjectPool, ModelObjectsComeFromThePool)
{
    SKIP_WITHOUT_POOL();
    OnFreshThread([] {
        vd::TVdSelectParser parser;
        parser.SetExpression("SELECT A, B FROM T WHERE A = 1 AND B = 2");
        const std::size_t before = pool::KeptBlocks(sizeof(vd::TVdFieldDef));
        parser.Clear();
        const std::size_t freed = pool::KeptBlocks(sizeof(vd::TVdFieldDef));
        EXPECT_GT(freed, before);
        // The next statement takes its fields from the kept blocks.
        parser.SetExpression("SELECT A, B FROM T WHERE A = 1 AND B = 2");
        EXPECT_LT(pool::KeptBlocks(sizeof(vd::TVdFieldDef)), freed);
        EXPECT_EQ(parser.GetExpression(),
                  "SELECT \r\n  \"T\".\"A\",\r\n  \"T\".\"B\"\r\nFROM\r\n  \"T\"\r\n"
                  "WHERE\r\n  (\"A\" = 1) AND \r\n  (\"B\" = 2)\r\n");
    });
}

namespace {

std::atomic<long> KeptAfterCacheGone{-1};

// Made before the thread's first pooled object, so destroyed after the thread's cache.
struct TLateProbe {
    ~TLateProbe() { KeptAfterCacheGone = long(pool::KeptBlocks(sizeof(vd::TVdFieldDef))); }
};

} // namespace

TEST(VdObjectPool, ObjectsFreedAfterTheThreadsCacheGoBackToTheHeap)
{
    OnFreshThread([] {
        thread_local TLateProbe probe;
        (void)probe;
        // Destroyed at thread exit after the cache, like a host's thread_local parser.
        thread_local vd::TVdSelectParser late;
        late.SetExpression("SELECT A, B FROM T WHERE A = 1");
        EXPECT_EQ(late.GetExpression(), "SELECT \r\n  \"T\".\"A\",\r\n  \"T\".\"B\"\r\nFROM\r\n  "
                                        "\"T\"\r\nWHERE\r\n  (\"A\" = 1)\r\n");
    });
    EXPECT_EQ(KeptAfterCacheGone.load(), 0);
}
