#ifndef ORV_GSL_GSL_COORDTREEPOOL_H
#define ORV_GSL_GSL_COORDTREEPOOL_H

#include <gsl/gsl_CoordTreeNode.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

/// Storage of one tree's nodes, in blocks: nodes made one after the other stand side by side, no node ever moves, and
/// all go at once without a walk through the tree.
class gsl_CoordTreePool {
public:
    /// The next `count` nodes that are not reused ones come from one block.
    void Reserve(std::size_t count) {
        if (!_blocks.empty() && _blocks.back().capacity() - _blocks.back().size() >= count) return;
        _blocks.emplace_back().reserve(count);
        _made += count;
    }

    /// A freed node if there is one, else a new one.
    [[nodiscard]] gsl_CoordTreeNode* Make(const gsl_CoordTreePt& pt) {
        if (_free != nullptr) {
            gsl_CoordTreeNode* const node = std::exchange(_free, _free->left);
            *node = gsl_CoordTreeNode(pt);
            return node;
        }
        if (_blocks.empty() || _blocks.back().size() == _blocks.back().capacity())
            Reserve(std::clamp<std::size_t>(_made / 4, 16, 65536));
        return &_blocks.back().emplace_back(pt);
    }

    /// Keeps the node for the next call of `Make`.
    void Free(gsl_CoordTreeNode* node) noexcept { node->left = std::exchange(_free, node); }

    /// Releases all nodes.
    void Clear() noexcept { *this = gsl_CoordTreePool(); }

private:
    std::vector<std::vector<gsl_CoordTreeNode>> _blocks;
    gsl_CoordTreeNode* _free = nullptr;  // linked by `left`
    std::size_t _made = 0;               // room in all blocks
};

#endif
