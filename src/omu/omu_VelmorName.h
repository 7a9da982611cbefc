#ifndef ORV_OMU_OMU_VELMORNAME_H
#define ORV_OMU_OMU_VELMORNAME_H

#include <base/cow_String.h>
#include <base/orv_Export.h>

/// The kind of a name, which decides its rules.
enum omu_VelmorNameEnum : int {
    omu_KernelName = 0,
    omu_KernelJobName = 1,
    omu_KernelModelName = 2,
    omu_GuiName = 3,
    omu_GuiJobName = 4,
    omu_GuiModelName = 5,
    omu_StepName = 6,  ///< the rules of omu_GuiName
    omu_XyDataName = 7
};

/// The name of something that a user makes: a model, a job, a step, XY data, a member of a repository. A name of this
/// class that was made with a kind obeys the rules of that kind, which are about bytes: no encoding is assumed, and
/// bytes of 128 and above are always allowed.
///
/// | kind         | bytes, at most | nowhere                           | not first            | not last  |
/// |--------------|----------------|-----------------------------------|----------------------|-----------|
/// | kernel       | 80             | " . \                             | digit                |           |
/// | kernel job   | 80             | " and job-name characters         | -                    |           |
/// | kernel model | 80             | " and model-name characters       |                      |           |
/// | gui, step    | 38             | " . \ control                     | digit, _, blank      | _, blank  |
/// | gui job      | 38             | " job-name characters, control    | -, _                 | _         |
/// | gui model    | 38             | " model-name characters, control  | _, blank             | _, blank  |
/// | XY data      | 256            | " . , \ control                   | digit, -, _, blank   | _, blank  |
///
/// Control characters are the bytes below 32. The rule sets differ on purpose: only a kernel name may be enclosed in
/// blanks or underscores, a model name may hold a colon and blanks and begin with a digit, a job name may begin with a
/// digit but not with '-'.
class ORV_EXPORT omu_VelmorName {
public:
    // The character rules as patterns of rgx_match. Names are checked by tables of the same bytes, in one pass.

    /// Must match: a name does not begin with a digit. Only the first byte counts.
    static constexpr const char* firstCharacterPattern = R"(^[^0-9])";
    /// Must not match: the job-name characters, which a job name does not hold.
    static constexpr const char* jobNamePattern = R"([:\$\\&\*~! \(\)\[\]\{\}\|;\'\`\< >\?\/. ])";
    /// Must not match: the model-name characters, which are the same but for the colon and the blank.
    static constexpr const char* modelNamePattern = R"([\$\\&\*~!\(\)\[\]\{\}\|;\'\`\<>\?\/.])";

    /// Longest names of the kinds, in bytes: kernel, user interface, XY data.
    [[nodiscard]] static constexpr int MaxKerNameSize() noexcept { return 80; }
    [[nodiscard]] static constexpr int MaxGuiNameSize() noexcept { return 38; }
    [[nodiscard]] static constexpr int MaxXyNameSize() noexcept { return 256; }

    /// The empty name, which no kind allows.
    omu_VelmorName() noexcept = default;

    /// A name that is not checked.
    explicit omu_VelmorName(const cow_String& name) noexcept : _name(name) {}

    /// A name that obeys the rules of `kind`; a kind that is not listed has none. A null `const char*` is the empty
    /// name. Throws omu_VelNameErrorException: omu_VelNameEmpty for an empty name, else the kind of error that belongs
    /// to job names, to model names, or to the others (omu_VelNameInvalid).
    omu_VelmorName(const cow_String& name, omu_VelmorNameEnum kind);
    omu_VelmorName(const char* name, omu_VelmorNameEnum kind);

    /// The name.
    [[nodiscard]] const cow_String& AsString() const noexcept { return _name; }

    // ---- Repair of names that come from elsewhere; nothing here throws but for want of memory

    /// Repairs `name` toward the rules of omu_GuiName and returns true; or leaves it alone and returns false, when it
    /// is or becomes empty, or when the repairs do not come to an end.
    ///
    /// `replacement` holds one character for each fault: [0] leading digit, [1] double quote, [2] '.', [3] backslash,
    /// [4] leading '_' or blank, [5] trailing '_' or blank. A '.' there means that the faulty character is removed; so
    /// do characters that are missing, and a null text.
    ///
    /// The name is cut to MaxGuiNameSize bytes first. Each pass then repairs the first fault in that order; a leading
    /// digit is not replaced, its character is put before it. The result need not obey the rules:
    /// - it has one byte more than MaxGuiNameSize when a character was put before a name of that size;
    /// - a fault whose replacement is the faulty character itself ends the repair, with what is left unrepaired;
    /// - control characters stay.
    ///
    /// At most 16 + 4 * length passes are made, the length being that after the cut; a digit as [0] needs more.
    [[nodiscard]] static bool MakeLegalGuiName(cow_String& name, const char* replacement);

    /// The name with double quotes around those of its parts between '.' that hold a blank, an apostrophe, '=', ',' or
    /// another job-name character, unless they are in double quotes already (at least three bytes). Every '.'
    /// separates, also one between quotes; empty parts stay empty.
    [[nodiscard]] static cow_String QuoteIfNeeded(const cow_String& name);

    /// A copy with each of ! # $ % & ' ( ) * , / : < = > ? [ ] { } ~ replaced by '-'. A backslash, a double quote, a
    /// blank, a pipe and '.' stay.
    [[nodiscard]] static cow_String MakeLegalFileName(const cow_String& name);

private:
    cow_String _name;
};

#endif
