#ifndef ORV_BASE_BIO_MARKER_H
#define ORV_BASE_BIO_MARKER_H

/// Which object of a stream a memento tells of: its number, and the bytes of that number, 0 when there is none.
struct bio_Marker {
    /// The number, and its bytes.
    unsigned number = 0;
    unsigned size = 0;

    bool operator==(const bio_Marker&) const = default;
};

#endif
