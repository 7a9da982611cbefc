#include <base/cls_MementoWrite.h>

cls_MementoWrite::~cls_MementoWrite() = default;
