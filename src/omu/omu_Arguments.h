#ifndef ORV_OMU_OMU_ARGUMENTS_H
#define ORV_OMU_OMU_ARGUMENTS_H

#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <omu/omu_PrimDictionary.h>
#include <omu/omu_PrimTuple.h>

#include <string>
#include <string_view>
#include <vector>

/// The arguments of one call of a scripting command: the positional ones, which are the elements of the tuple, and the
/// keyword ones.
///
/// A bridge fills it, the command reads it in the order of its declaration and closes with `End`:
///
///     void Part::Resize(omu_Arguments& arguments) {
///         double width = 0.0, height = 0.0;
///         bool keepRatio = false;
///         arguments.Begin();
///         arguments.Get(width, "width");
///         arguments.Get(height, "height");
///         arguments.Optional();
///         arguments.Get(keepRatio, "keepRatio");
///         arguments.End("Resize");
///         ...
///     }
///
/// A read with a keyword takes the next positional argument while there is one, and the keyword after that. Reads never
/// throw; the first problem is recorded and thrown by `End`. A keyword that was not supplied is a problem before
/// `Optional` and none after it. What a target of a type reads is told in `omu_Argument.h`.
class ORV_EXPORT omu_Arguments : public omu_PrimTuple {
public:
    omu_Arguments() : omu_Arguments(0) {}
    /// With room for `count` positional arguments, which count as supplied.
    explicit omu_Arguments(int count) : omu_PrimTuple('(', count) {}

    // ---- Filling

    using omu_PrimTuple::Put;
    /// Adds a keyword argument, or replaces it.
    template <omu_Puttable V>
    void Put(const V& value, const cow_String& keyword) {
        _keywords.Put(value, keyword);
    }
    void Put(std::unique_ptr<omu_Primitive> value, const cow_String& keyword) {
        _keywords.Put(std::move(value), keyword);
    }
    void Put(omu_Primitive* value, const cow_String& keyword) { _keywords.Put(value, keyword); }

    [[nodiscard]] const omu_PrimDictionary<cow_String>& Keywords() const noexcept { return _keywords; }

    // ---- Reading

    void Begin() override;

    using omu_PrimTuple::Get;
    /// Reads by position while positional arguments remain; then a supplied keyword that was not read yet (one that was
    /// is read as nothing, without an error).
    template <omu_Readable T>
    void Get(T& value, const cow_String& keyword) {
        ReadKeyword(omu_ArgumentSlot(value), keyword.View());
    }
    /// The same without making a string of the keyword; null is the empty one.
    template <omu_Readable T>
    void Get(T& value, const char* keyword) {
        ReadKeyword(omu_ArgumentSlot(value), keyword != nullptr ? keyword : "");
    }

    /// Withdraws the last read when it failed, or when its optional keyword was missing, so that the same argument can
    /// be read as another type or by another keyword. Whether it did. *An earlier positional read that failed is
    /// withdrawn as well* when only keyword reads came after it and no more reads were made than there are positional
    /// arguments; those keywords stay read, and the next read takes that earlier argument. So ask `ErrorOnPrevious`
    /// first.
    bool Alternative() override;

    /// Whether a keyword was not read yet, an error is recorded, or there are too few or too many arguments.
    [[nodiscard]] bool Error() const override;

    /// The keywords that were supplied and not read yet; those that `Alternative` put back come last.
    [[nodiscard]] const std::vector<cow_String>& UnreadKeywords() const noexcept { return _unread; }

    /// Throws the first that holds: omu_KeywordErrorException for a keyword that nobody read,
    /// omu_ArgTypeErrorException or omu_KeywordTypeErrorException for the recorded error, omu_ArgNumberErrorException
    /// for too few arguments, the same for too many. A keyword's value of the wrong type is not told when it is an
    /// enumeration named Undetermined, which is also the mark of a keyword that is missing; `Error()` is true all the
    /// same.
    void End(const cow_String& command = cow_String()) override;

    // ---- Deprecated arguments, kept for old scripts. Where they are refused, the reads here do nothing at all, as if
    // the command did not have the argument: an old script's keyword then is an unknown one.

    /// Whether deprecated arguments are accepted: VELMOR_DEPRECATED says so, being exactly "ON" or "OFF"; else they are
    /// refused when VELMOR_DEVL_MODE is set, to anything. Both are read once.
    [[nodiscard]] static bool DeprecatedAccepted();

    /// As `Get`; when there was an argument to read, its use is recorded under `name`.
    template <omu_Readable T>
    void DeprecatedGet(T& value, const cow_String& keyword, const cow_String& name) {
        ReadDeprecated(omu_ArgumentSlot(value), keyword, name);
    }
    template <omu_Readable T>
    void DeprecatedGet(T& value, const cow_String& keyword) {
        ReadDeprecated(omu_ArgumentSlot(value), keyword, keyword);
    }

    /// Whether the deprecated keyword was supplied, was not read yet, and is accepted. That it was asked for is kept.
    bool DeprecatedCheck(const cow_String& keyword);

    /// As `Alternative`, for reading the argument again in a way that is deprecated; when it withdraws, the use is
    /// recorded under `name`.
    bool DeprecatedAlternative(const cow_String& name);

    /// Records the use of a deprecated argument; once, however often.
    void AddDeprecatedArgUsed(const cow_String& name);

    /// Since `Begin`, for the bridge to report.
    [[nodiscard]] const cow_List<cow_String>& DeprecatedArgsUsed() const noexcept { return _deprecatedUsed; }
    [[nodiscard]] const cow_List<cow_String>& DeprecatedArgsChecked() const noexcept { return _deprecatedChecked; }

    // ---- Operations. Texts, comparison and persistence are those of the tuple: they know the positional arguments.

    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

private:
    void ReadKeyword(const omu_ArgumentSlot& slot, std::string_view keyword);
    void ReadDeprecated(const omu_ArgumentSlot& slot, const cow_String& keyword, const cow_String& name);
    void RecordKeywordError(std::string_view keyword, int& position);
    [[nodiscard]] std::vector<cow_String>::iterator FindUnread(std::string_view keyword);
    [[nodiscard]] bool IsErrorAtLastRead() const noexcept;
    /// Arguments that required reads found.
    [[nodiscard]] int Consumed() const noexcept { return Length() + _requiredKeywords; }
    [[nodiscard]] int Supplied() const noexcept { return Length() + _keywords.Length(); }

    omu_PrimDictionary<cow_String> _keywords{'{', 'O'};
    std::vector<cow_String> _unread;
    cow_List<cow_String> _deprecatedChecked;
    cow_List<cow_String> _deprecatedUsed;
    int _requiredKeywords = 0;  // consumed by required reads
    int _requiredError = 0;     // number of the read with a keyword error, from 1; 0 without
    int _optionalError = 0;     // the same for an optional keyword that is missing
    bool _hasErrorKeyword = false;
    std::string _errorKeyword;  // of that read
};

#endif
