// Prints what is in a model stream: class, field, value and offset of each record.

#include "../stress_report/host_ModelFile.h"
#include "../support/host_ReadFile.h"
#include "../support/host_Session.h"

#include <base/bio_Ifilter.h>
#include <base/cls_MetadataRegistrar.h>
#include <idb/idb_Dump.h>

#include <charconv>
#include <exception>
#include <iostream>
#include <string_view>

namespace {

constexpr int badCall = 1;
constexpr int badFile = 2;  // no stream, or not to be read to its end

bool ReadCount(std::string_view text, int& count) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    return error == std::errc() && end == text.data() + text.size() && count >= 0;
}

}  // namespace

int main(int argc, char** argv) {
    int maxRecords = -1;  // all
    if (argc < 2 || argc > 3 || (argc == 3 && !ReadCount(argv[2], maxRecords))) {
        std::cerr << "usage: memento_dump STREAM [RECORDS]\n";
        return badCall;
    }
    try {
        const host_Session session;
        host_RegisterClasses();
        bio_Ifilter in(host_ReadFile(argv[1]));
        idb_Dump(std::cout, in, cls_MetadataRegistrar::Instance().Registrar(), maxRecords);
        std::cout.flush();
        return maxRecords < 0 && in.Remaining() > 0 ? badFile : 0;
    } catch (const std::exception& failure) {
        std::cout.flush();
        std::cerr << "memento_dump: " << argv[1] << ": " << failure.what() << '\n';
        return badFile;
    }
}
