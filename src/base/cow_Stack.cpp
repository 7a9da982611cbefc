#include <base/cow_Stack.h>

#include <cstdio>
#include <cstdlib>

void cow_AbortOnEmptyStack(const char* operation) noexcept {
    std::fprintf(stderr, "cow_Stack::%s: the stack is empty\n", operation);
    std::abort();
}
