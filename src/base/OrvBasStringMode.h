#ifndef ORV_BASE_ORVBASSTRINGMODE_H
#define ORV_BASE_ORVBASSTRINGMODE_H

/// The encoding in which a message is wanted: 0 is UTF-8, 1 the encoding of the C locale. Any other number is handed on
/// as it is and converts like 0.
enum OrvBasStringMode : int {};

#endif
