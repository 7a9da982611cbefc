#include <base/nex_Exception.h>

#include <utility>

nex_Exception::nex_Exception(cow_String message) noexcept : _message(std::move(message)) {}
nex_Exception::~nex_Exception() = default;

const char* nex_Exception::what() const noexcept { return _message.c_str(); }
nex_Exception* nex_Exception::Copy() const { return new nex_Exception(*this); }
void nex_Exception::Propagate() const { throw *this; }
unsigned nex_Exception::DynTypeId() const { return 0; }
