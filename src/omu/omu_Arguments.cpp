#include <base/nex_Throw.h>
#include <omu/omu_ArgNumberErrorException.h>
#include <omu/omu_ArgTypeErrorException.h>
#include <omu/omu_Arguments.h>
#include <omu/omu_KeywordErrorException.h>
#include <omu/omu_KeywordTypeErrorException.h>

#include <algorithm>
#include <cstdlib>

namespace {

/// Both types of a read whose keyword is missing.
const cow_String& Undetermined() {
    static const cow_String text("Undetermined");
    return text;
}

bool AcceptsDeprecated() {
    if (const char* const forced = std::getenv("VELMOR_DEPRECATED"); forced != nullptr) {
        if (std::string_view(forced) == "ON") return true;
        if (std::string_view(forced) == "OFF") return false;
    }
    return std::getenv("VELMOR_DEVL_MODE") == nullptr;
}

}  // namespace

void omu_Arguments::Begin() {
    omu_PrimTuple::Begin();
    _unread.clear();
    for (const auto& [keyword, value] : _keywords) _unread.push_back(keyword);
    _deprecatedChecked.Clear();
    _deprecatedUsed.Clear();
    _requiredKeywords = _requiredError = _optionalError = 0;
    _hasErrorKeyword = false;
}

void omu_Arguments::ReadKeyword(const omu_ArgumentSlot& slot, std::string_view keyword) {
    const bool hasError = _reading.errorArg != 0;
    if (!hasError && _reading.cursor < Length()) {
        ReadNext(slot);
        return;
    }
    _reading.errorOnPrevious = false;
    const auto unread = FindUnread(keyword);
    const omu_Primitive* const found = _keywords.Find(keyword);
    if (!hasError && unread != _unread.end()) {
        if (!Take(found, slot)) RecordKeywordError(keyword, _requiredError);
    } else if (!hasError && found == nullptr) {
        _reading.typeFound = _reading.typeExpected = Undetermined();
        RecordKeywordError(keyword, _reading.isOptional ? _optionalError : _requiredError);
    }
    Count(1);
    if (unread == _unread.end()) return;
    _unread.erase(unread);
    if (!_reading.isOptional) ++_requiredKeywords;
}

void omu_Arguments::RecordKeywordError(std::string_view keyword, int& position) {
    position = _reading.numGets + 1;
    _reading.errorArg = _requiredError;
    _reading.errorOnPrevious = true;
    _errorKeyword = keyword;
    _hasErrorKeyword = true;
}

std::vector<cow_String>::iterator omu_Arguments::FindUnread(std::string_view keyword) {
    return std::find_if(_unread.begin(), _unread.end(),
                        [keyword](const cow_String& each) { return each.View() == keyword; });
}

bool omu_Arguments::IsErrorAtLastRead() const noexcept {
    return _reading.numGets != 0 && (_requiredError == _reading.numGets || _optionalError == _reading.numGets);
}

bool omu_Arguments::Alternative() {
    if (!IsErrorAtLastRead()) {
        if (_requiredError != 0 || _reading.numGets > Length()) return false;
        return omu_PrimTuple::Alternative();
    }
    Count(-1);
    ClearError();
    _requiredError = _optionalError = 0;
    if (_keywords.Find(_errorKeyword) != nullptr) {
        _unread.emplace_back(std::string_view(_errorKeyword));
        if (!_reading.isOptional) --_requiredKeywords;
    }
    _hasErrorKeyword = false;
    return true;
}

bool omu_Arguments::Error() const {
    return !_unread.empty() || _reading.errorArg != 0 || Consumed() < _reading.reqcount ||
           Supplied() > _reading.argcount;
}

void omu_Arguments::End(const cow_String& command) {
    const cow_String& name = command == "" ? Command() : command;
    _optionalError = 0;
    if (!_unread.empty()) nex_Throw(omu_KeywordErrorException(_unread.front(), name));
    if (_reading.errorArg != 0 && !_hasErrorKeyword)
        nex_Throw(omu_ArgTypeErrorException(_reading.errorArg, _reading.typeExpected, _reading.typeFound, name));
    // A missing keyword leaves both types undetermined and shows in the counts. Either one passes for that, so a
    // constant that is named so and is of the wrong type is not told of.
    const bool isMissing = _reading.typeFound == Undetermined() || _reading.typeExpected == Undetermined();
    if (_hasErrorKeyword && !isMissing)
        nex_Throw(omu_KeywordTypeErrorException(cow_String(std::string_view(_errorKeyword)), _reading.typeExpected,
                                                _reading.typeFound, name));
    if (Consumed() < _reading.reqcount) nex_Throw(omu_ArgNumberErrorException(_reading.reqcount, Consumed(), name));
    if (Supplied() > _reading.argcount) nex_Throw(omu_ArgNumberErrorException(_reading.argcount, Supplied(), name));
}

// ---- Deprecated arguments

bool omu_Arguments::DeprecatedAccepted() {
    static const bool accepted = AcceptsDeprecated();
    return accepted;
}

void omu_Arguments::ReadDeprecated(const omu_ArgumentSlot& slot, const cow_String& keyword, const cow_String& name) {
    if (!DeprecatedAccepted()) return;
    const bool isSupplied = _reading.cursor < Length() || FindUnread(keyword.View()) != _unread.end();
    if (_reading.errorArg == 0 && isSupplied) AddDeprecatedArgUsed(name);
    ReadKeyword(slot, keyword.View());
}

bool omu_Arguments::DeprecatedCheck(const cow_String& keyword) {
    _deprecatedChecked.Append(keyword);
    return DeprecatedAccepted() && FindUnread(keyword.View()) != _unread.end();
}

bool omu_Arguments::DeprecatedAlternative(const cow_String& name) {
    if (!DeprecatedAccepted() || !Alternative()) return false;
    AddDeprecatedArgUsed(name);
    return true;
}

void omu_Arguments::AddDeprecatedArgUsed(const cow_String& name) {
    if (std::find(_deprecatedUsed.begin(), _deprecatedUsed.end(), name) == _deprecatedUsed.end())
        _deprecatedUsed.Append(name);
}

std::unique_ptr<omu_Primitive> omu_Arguments::Copy() const { return std::make_unique<omu_Arguments>(*this); }
