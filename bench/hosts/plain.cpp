// A process that loads the C++ runtime and nothing else: what frame_bench compares a started library with.

#include <iostream>
#include <string>

int main(int count, char**) { return std::string(static_cast<std::size_t>(count), 'x').empty() ? 1 : 0; }
