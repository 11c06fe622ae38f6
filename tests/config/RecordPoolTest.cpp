// RecordPool: blocks of every size do not overlap and are aligned; how well
// memory is reused is the INI benchmark's business.
#include "config/logic/RecordPool.h"

#include <gtest/gtest.h>

#include <stdint.h>
#include <string.h>

#include <vector>

namespace {

using tqm::ini::RecordPool;

TEST(RecordPool, BlocksOfEverySizeAreSeparateAndAligned)
{
    RecordPool pool;
    struct Block { char* p; size_t n; };
    std::vector<Block> blocks;
    // Sizes around the chunk sizes and the pooled limit, each filled with its own byte.
    for (size_t n : {1, 7, 8, 9, 100, 2047, 2048, 2049, 3076, 4095, 4096, 4097, 70000, 16, 3000, 5}) {
        char* p = pool.Allocate(n);
        ASSERT_NE(nullptr, p);
        EXPECT_EQ(0u, reinterpret_cast<uintptr_t>(p) % RecordPool::kAlignment) << n;
        memset(p, static_cast<int>(blocks.size() + 1), n);
        blocks.push_back({p, n});
    }
    for (size_t i = 0; i < blocks.size(); ++i) {
        for (size_t k = 0; k < blocks[i].n; ++k)
            ASSERT_EQ(static_cast<char>(i + 1), blocks[i].p[k]) << "block " << i << " overwritten at " << k;
    }
    for (const Block& b : blocks)
        pool.Free(b.p, b.n);
    pool.Release();
    EXPECT_EQ(0u, pool.ChunkBytes());
}

}  // namespace
