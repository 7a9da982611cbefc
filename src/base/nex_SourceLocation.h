#ifndef ORV_BASE_NEX_SOURCELOCATION_H
#define ORV_BASE_NEX_SOURCELOCATION_H

/// A place in the source, with static storage behind both texts. It does what std::source_location does, which one of
/// the compilers of the house (clang 14 on the GNU library) does not have yet.
struct nex_SourceLocation {
    /// Literals of the compiler; empty and 0 when not known.
    const char* file = "";
    const char* function = "";
    unsigned line = 0;

    /// The caller's place when it stands as a default argument.
    [[nodiscard]] static constexpr nex_SourceLocation Current(const char* file = __builtin_FILE(),
                                                              const char* function = __builtin_FUNCTION(),
                                                              int line = __builtin_LINE()) noexcept {
        return {file, function, static_cast<unsigned>(line)};
    }
};

#endif
