#ifndef ORV_BASE_DETAIL_ORV_PLAINNUMBERS_H
#define ORV_BASE_DETAIL_ORV_PLAINNUMBERS_H

#include <clocale>
#ifdef _WIN32
#include <locale.h>

#include <string>
#endif

/// While it lives, the `printf` family on this thread writes numbers with a decimal point, whatever the host's locale.
class orv_PlainNumbers {
public:
    orv_PlainNumbers(const orv_PlainNumbers&) = delete;
    orv_PlainNumbers& operator=(const orv_PlainNumbers&) = delete;

#ifdef _WIN32
    orv_PlainNumbers()
        : _before(_configthreadlocale(_ENABLE_PER_THREAD_LOCALE)), _name(std::setlocale(LC_NUMERIC, nullptr)) {
        std::setlocale(LC_NUMERIC, "C");
    }
    ~orv_PlainNumbers() {
        std::setlocale(LC_NUMERIC, _name.c_str());
        _configthreadlocale(_before);
    }

private:
    int _before;
    std::string _name;
#else
    orv_PlainNumbers() noexcept : _before(uselocale(Plain())) {}
    ~orv_PlainNumbers() { uselocale(_before); }

private:
    /// Null, which changes nothing, if there is no memory for it. It is kept for good.
    static locale_t Plain() noexcept {
        static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
        return plain;
    }

    locale_t _before;
#endif
};

#endif
