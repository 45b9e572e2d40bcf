// SPDX-License-Identifier: MIT
//
// What hardened builds remember of the blocks and nodes that the library gave away, so that they notice a
// second release, or another size or range than the block has. In other builds nothing is remembered, and no
// call is any code.
#ifndef ZEPH_SRC_PLATFORM_LIVE_BLOCKS_H
#define ZEPH_SRC_PLATFORM_LIVE_BLOCKS_H

#include "platform/preconditions.h"

namespace zeph::platform {

/// A block and what it holds. A matrix is the block of its row pointers.
struct LiveBlock {
  const void* block;   // as the allocation operator gave it
  const void* handle;  // what the caller got: the block moved back by `lo`
  int lo, count;       // elements, or rows
  int columnLo = 0, columns = 0;
  enum class Kind { kArray, kNode } kind = Kind::kArray;
};

#ifdef ZEPH_HARDENED

/// From any thread. Memory comes from malloc, so that an application's operators are not asked for more than in
/// other builds; where there is none, the block stays unknown, and so may any other from then on.
void RememberBlock(const LiveBlock& block);

/// Notes that a block is released, if it is known; that is remembered for a while.
void ForgetBlock(const void* block);

/// Whether `block` is known and live, with what is known of it.
bool FindBlock(const void* block, LiveBlock& found);

/// Likewise by what the caller got; slow.
bool FindHandle(const void* handle, LiveBlock& found);

/// Whether `block`, of this kind, was released and not given away again since. Only of what was released lately.
bool IsReleased(const void* block, LiveBlock::Kind kind = LiveBlock::Kind::kArray);

/// Whether a live block that FindBlock does not find cannot be the library's.
bool AllBlocksAreKnown();

#else
inline void RememberBlock(const LiveBlock&) {}
inline void ForgetBlock(const void*) {}
#endif

/// A node of a chain, which releases it.
inline void RememberNode([[maybe_unused]] const void* node) {
#ifdef ZEPH_HARDENED
  RememberBlock({node, node, 0, 1, 0, 0, LiveBlock::Kind::kNode});
#endif
}

/// A node is not one that another list or stack, which shared the chain, has released.
inline void RequireNode([[maybe_unused]] const char* operation, [[maybe_unused]] const void* node) {
#ifdef ZEPH_HARDENED
  if (node && IsReleased(node, LiveBlock::Kind::kNode))
    ZEPH_Stop(operation, "the first node was released by another that shared the chain");
#endif
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_LIVE_BLOCKS_H
