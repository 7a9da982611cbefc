#include <base/nex_PrimException.h>

nex_PrimException* nex_PrimException::Copy() const { return new nex_PrimException(*this); }
void nex_PrimException::Propagate() const { throw *this; }
