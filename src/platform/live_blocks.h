// SPDX-License-Identifier: MIT
//
// Hardened builds record the blocks and nodes that the library has handed out, to detect a second
// release or a size or range that the block does not have. In other builds nothing is recorded, and
// the calls compile to nothing.
#ifndef ZEPH_SRC_PLATFORM_LIVE_BLOCKS_H
#define ZEPH_SRC_PLATFORM_LIVE_BLOCKS_H

#include "platform/preconditions.h"

namespace zeph::platform {

/// A block and its contents. A matrix is represented by the block of its row pointers.
struct LiveBlock {
  const void* block;   // as the allocation operator returned it
  const void* handle;  // what the caller got: the block moved back by `lo`
  int lo, count;       // elements, or rows
  int columnLo = 0, columns = 0;
  enum class Kind { kArray, kNode } kind = Kind::kArray;
};

#ifdef ZEPH_HARDENED

/// Records a block; may be called from any thread. Memory comes from malloc, so that an
/// application's operators get no more requests than in other builds; where it runs out, the block
/// stays unknown, and so may any later one.
void RememberBlock(const LiveBlock& block);

/// Records that a block is released, if it is known; the record is kept for a while.
void ForgetBlock(const void* block);

/// Whether `block` is known and live; sets its record.
bool FindBlock(const void* block, LiveBlock& found);

/// The same by the pointer that the caller got; slow.
bool FindHandle(const void* handle, LiveBlock& found);

/// Whether `block`, of this kind, was released and not handed out again since. Knows only recent
/// releases.
bool IsReleased(const void* block, LiveBlock::Kind kind = LiveBlock::Kind::kArray);

/// Whether all of the library's live blocks are known, so that one that FindBlock does not find is
/// not the library's.
bool AllBlocksAreKnown();

#else
inline void RememberBlock(const LiveBlock&) {}
inline void ForgetBlock(const void*) {}
#endif

/// Records a node that a chain releases.
inline void RememberNode([[maybe_unused]] const void* node) {
#ifdef ZEPH_HARDENED
  RememberBlock({node, node, 0, 1, 0, 0, LiveBlock::Kind::kNode});
#endif
}

/// Stops if another list or stack that shared the chain has released the node.
inline void RequireNode([[maybe_unused]] const char* operation, [[maybe_unused]] const void* node) {
#ifdef ZEPH_HARDENED
  if (node && IsReleased(node, LiveBlock::Kind::kNode))
    ZEPH_Stop(operation, "the first node was released by another that shared the chain");
#endif
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_LIVE_BLOCKS_H
