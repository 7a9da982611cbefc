#include <base/cls_Collection.h>

cls_Collection::~cls_Collection() = default;

void cls_Collection::Abandon() noexcept {}
