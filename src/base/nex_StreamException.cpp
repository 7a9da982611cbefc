#include <base/nex_StreamException.h>

nex_StreamException* nex_StreamException::Copy() const { return new nex_StreamException(*this); }
void nex_StreamException::Propagate() const { throw *this; }
