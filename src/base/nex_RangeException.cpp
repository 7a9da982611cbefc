#include <base/nex_RangeException.h>

nex_RangeException* nex_RangeException::Copy() const { return new nex_RangeException(*this); }
void nex_RangeException::Propagate() const { throw *this; }
