#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_ArgNumberErrorException.h>

namespace {

cow_String Message(int expected, int given, const cow_String& command) {
    const atr_String where = command == "" ? atr_String() : atr("%s; ", command.c_str());
    const char* const fault = expected >= given ? "not all required arguments specified" : "too many arguments";
    return atr("%s%s; expected %d, got %d", where.c_str(), fault, expected, given).Text();
}

}  // namespace

omu_ArgNumberErrorException::omu_ArgNumberErrorException(int expected, int given, const cow_String& command)
    : omu_TypeErrorException(Message(expected, given, command)),
      _expected(expected),
      _given(given),
      _command(command) {}

omu_ArgNumberErrorException* omu_ArgNumberErrorException::Copy() const {
    return new omu_ArgNumberErrorException(*this);
}
void omu_ArgNumberErrorException::Propagate() const { throw *this; }
unsigned omu_ArgNumberErrorException::DynTypeId() const { return TypeId(); }

void omu_ArgNumberErrorException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar
        .Class<omu_ArgNumberErrorException, omu_TypeErrorException>("omu_ArgNumberErrorException", omu_MetadataNumber)
        .Add<int>("m_Expected")
        .Add<int>("m_Given")
        .Add<cow_String>("m_Command");
}

void omu_ArgNumberErrorException::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_TypeErrorException::DBWrite(visitor.Base(omu_TypeErrorException::TypeId()));
    visitor.Write("m_Expected", _expected);
    visitor.Write("m_Given", _given);
    visitor.Write("m_Command", _command);
}

omu_ArgNumberErrorException::omu_ArgNumberErrorException(const cls_ReadVisitor& visitor)
    : omu_ArgNumberErrorException(visitor.Read("m_Expected", 0), visitor.Read("m_Given", 0),
                                  visitor.Read("m_Command", cow_String())) {}
