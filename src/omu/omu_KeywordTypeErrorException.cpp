#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_KeywordTypeErrorException.h>
#include <omu/omu_SquareBracket.h>

namespace {

cow_String Message(const cow_String& keyword, const cow_String& expected, const cow_String& found,
                   const cow_String& command) {
    // The keyword is cut at a NUL before it is quoted, so that the closing quote and bracket are printed.
    const atr_String where = command == ""
                                 ? atr("%s", keyword.c_str())
                                 : atr("%s%s", command.c_str(), omu_SquareBracket(keyword.c_str()).AsString().c_str());
    return atr("%s; found %s, expecting %s", where.c_str(), found.c_str(), expected.c_str()).Text();
}

}  // namespace

omu_KeywordTypeErrorException::omu_KeywordTypeErrorException(const cow_String& keyword, const cow_String& expected,
                                                             const cow_String& found, const cow_String& command)
    : omu_TypeErrorException(Message(keyword, expected, found, command)),
      _keyword(keyword),
      _expected(expected),
      _found(found),
      _command(command) {}

omu_KeywordTypeErrorException* omu_KeywordTypeErrorException::Copy() const {
    return new omu_KeywordTypeErrorException(*this);
}
void omu_KeywordTypeErrorException::Propagate() const { throw *this; }
unsigned omu_KeywordTypeErrorException::DynTypeId() const { return TypeId(); }

void omu_KeywordTypeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar
        .Class<omu_KeywordTypeErrorException, omu_TypeErrorException>("omu_KeywordTypeErrorException",
                                                                      omu_MetadataNumber)
        .Add<cow_String>("m_Keyword")
        .Add<cow_String>("m_Expected")
        .Add<cow_String>("m_Found")
        .Add<cow_String>("m_Command");
}

void omu_KeywordTypeErrorException::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_TypeErrorException::DBWrite(visitor.Base(omu_TypeErrorException::TypeId()));
    visitor.Write("m_Keyword", _keyword);
    visitor.Write("m_Expected", _expected);
    visitor.Write("m_Found", _found);
    visitor.Write("m_Command", _command);
}

omu_KeywordTypeErrorException::omu_KeywordTypeErrorException(const cls_ReadVisitor& visitor)
    : omu_KeywordTypeErrorException(visitor.Read("m_Keyword", cow_String()), visitor.Read("m_Expected", cow_String()),
                                    visitor.Read("m_Found", cow_String()), visitor.Read("m_Command", cow_String())) {}
