#ifndef ORV_UTF_DETAIL_UTF_PRINTCOMPONENTS_H
#define ORV_UTF_DETAIL_UTF_PRINTCOMPONENTS_H

#include <base/aio_ostream.h>

#include <ostream>
#include <span>

/// The line that all of this module print: `indent` blanks, name and ": ", each number and a blank, newline, flush.
template <class T>
void utf_PrintComponents(aio_ostream& out, int indent, const char* name, std::span<const T> components) {
    for (int i = 0; i < indent; ++i) out.put(' ');
    out << name << ": ";
    for (const T component : components) out << component << ' ';
    out << '\n' << std::flush;
}

#endif
