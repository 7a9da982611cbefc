// Any bytes as a stream: they are read as a value or refused by the documented exceptions, and what was read is written
// as a stream that reads as itself.

#include "fuzz_Bytes.h"

#include <base/nex_CommandException.h>
#include <base/nex_PrimException.h>
#include <base/nex_StreamException.h>
#include <frame/frame_PersistentSamples.h>
#include <idb/idb_Dump.h>

#include <optional>
#include <sstream>

namespace {

/// What is read and written again; nothing when the bytes are refused.
std::optional<std::string> Rewritten(const PersistentSamples& samples, const std::string& bytes) {
    try {
        return samples.rewrite(bytes);
    } catch (const nex_StreamException&) {
    } catch (const nex_CommandException&) {  // an enumeration does not have a value of this name
    } catch (const nex_PrimException&) {     // values nested more than 150 deep cannot be written
    }
    return std::nullopt;
}

void ReadAs(const PersistentSamples& samples, const std::string& bytes) {
    const std::optional<std::string> once = Rewritten(samples, bytes);
    if (!once) return;
    const std::optional<std::string> twice = Rewritten(samples, *once);
    fuzz_Require(twice.has_value(), "what was written reads");
    fuzz_Require(*twice == *once, "what was written reads back the same");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz_StartLibrary();
    static const std::vector<PersistentSamples> all = AllPersistentSamples();
    const std::string bytes = fuzz_Bytes(data, size).Rest();

    // As the class of its first root, and as one that it may not be.
    const auto stored = std::ranges::find(all, fuzz_Bytes(data, size).Take<unsigned>(), &PersistentSamples::id);
    if (stored != all.end()) ReadAs(*stored, bytes);
    ReadAs(all[size % all.size()], bytes);

    const cls_ClassRegistrar& library = cls_MetadataRegistrar::Instance().Registrar();
    for (const cls_ClassRegistrar* registrar : {&library, &TestRegistrar()}) {
        bio_Ifilter in(bytes);
        std::ostringstream text;
        try {
            idb_Dump(text, in, *registrar);
        } catch (const nex_StreamException&) {
        }
    }
    return 0;
}
