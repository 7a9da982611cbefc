#include <gsl/gsl_CoordTree.h>
#include <gsl/gsl_CoordTreeImpl.h>
#include <gsl/gsl_CoordTreeIter.h>

gsl_CoordTreeIter::gsl_CoordTreeIter(const gsl_CoordTree& tree) {
    if (tree._impl && tree._impl->GetRoot() != nullptr) _pending.push_back(tree._impl->GetRoot());
}

bool gsl_CoordTreeIter::GetCurrent(gsl_Point& point, unsigned int& index) const {
    if (_pending.empty()) return false;
    point = _pending.back()->point;
    index = _pending.back()->index;
    return true;
}

void gsl_CoordTreeIter::Next() {
    if (_pending.empty()) return;
    const gsl_CoordTreeNode* const node = _pending.back();
    _pending.pop_back();
    if (node->right != nullptr) _pending.push_back(node->right);
    if (node->left != nullptr) _pending.push_back(node->left);
}
