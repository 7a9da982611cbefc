#ifndef ORV_BASE_MEM_ALLOCATIONOPERATORS_H
#define ORV_BASE_MEM_ALLOCATIONOPERATORS_H

/// Base of classes that are allocated one by one in great numbers. It marks them; the standard allocator serves them.
struct mem_AllocationOperators {};

#endif
