#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_KeywordErrorException.h>

omu_KeywordErrorException::omu_KeywordErrorException(const cow_String& keyword, const cow_String& command)
    : omu_TypeErrorException(atr("%skeyword error on %s", command.c_str(), keyword.c_str()).Text()),
      _keyword(keyword),
      _command(command) {}

omu_KeywordErrorException* omu_KeywordErrorException::Copy() const { return new omu_KeywordErrorException(*this); }
void omu_KeywordErrorException::Propagate() const { throw *this; }
unsigned omu_KeywordErrorException::DynTypeId() const { return TypeId(); }

void omu_KeywordErrorException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_KeywordErrorException, omu_TypeErrorException>("omu_KeywordErrorException", omu_MetadataNumber)
        .Add<cow_String>("m_Keyword")
        .Add<cow_String>("m_Command");
}

void omu_KeywordErrorException::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_TypeErrorException::DBWrite(visitor.Base(omu_TypeErrorException::TypeId()));
    visitor.Write("m_Keyword", _keyword);
    visitor.Write("m_Command", _command);
}

omu_KeywordErrorException::omu_KeywordErrorException(const cls_ReadVisitor& visitor)
    : omu_KeywordErrorException(visitor.Read("m_Keyword", cow_String()), visitor.Read("m_Command", cow_String())) {}
