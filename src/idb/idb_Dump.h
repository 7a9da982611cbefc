#ifndef ORV_IDB_IDB_DUMP_H
#define ORV_IDB_IDB_DUMP_H

#include <base/orv_Export.h>

#include <iosfwd>

class bio_Ifilter;
class cls_ClassRegistrar;

/// Prints the roots of a stream from its position on, readable: a line for each memento and field with the offset in
/// the stream (hexadecimal), the name, the stored type and the value. Long lists are cut after eight values.
///
/// Stops after `maxRoots` roots (negative: at the end of the stream), or behind a root of an unregistered class,
/// whose extent nothing tells: it says so in the last line. Gives the number of roots printed. Throws
/// nex_StreamException where the bytes are no stream; what was good before it is printed.
ORV_EXPORT int idb_Dump(std::ostream& out, bio_Ifilter& in, const cls_ClassRegistrar& registrar, int maxRoots = -1);

#endif
