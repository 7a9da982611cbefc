#ifndef ORV_BASE_AIO_OSTREAM_H
#define ORV_BASE_AIO_OSTREAM_H

#include <iosfwd>

/// The text stream that `Print` operations write to.
using aio_ostream = std::ostream;

#endif
