#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_ArgTypeErrorException.h>
#include <omu/omu_SquareBracket.h>

namespace {

cow_String Message(int argument, const cow_String& expected, const cow_String& found, const cow_String& command) {
    // By wrapping: the least number, which no command has, must not overflow.
    const int index = static_cast<int>(static_cast<unsigned>(argument) - 1U);
    const atr_String where = command == "" ? atr("arg%d", argument)
                                           : atr("%s%s", command.c_str(), omu_SquareBracket(index).AsString().c_str());
    return atr("%s; found %s, expecting %s", where.c_str(), found.c_str(), expected.c_str()).Text();
}

}  // namespace

omu_ArgTypeErrorException::omu_ArgTypeErrorException(int argument, const cow_String& expected, const cow_String& found,
                                                     const cow_String& command)
    : omu_TypeErrorException(Message(argument, expected, found, command)),
      _argument(argument),
      _expected(expected),
      _found(found),
      _command(command) {}

omu_ArgTypeErrorException* omu_ArgTypeErrorException::Copy() const { return new omu_ArgTypeErrorException(*this); }
void omu_ArgTypeErrorException::Propagate() const { throw *this; }
unsigned omu_ArgTypeErrorException::DynTypeId() const { return TypeId(); }

void omu_ArgTypeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_ArgTypeErrorException, omu_TypeErrorException>("omu_ArgTypeErrorException", omu_MetadataNumber)
        .Add<int>("m_Argument")
        .Add<cow_String>("m_Expected")
        .Add<cow_String>("m_Found")
        .Add<cow_String>("m_Command");
}

void omu_ArgTypeErrorException::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_TypeErrorException::DBWrite(visitor.Base(omu_TypeErrorException::TypeId()));
    visitor.Write("m_Argument", _argument);
    visitor.Write("m_Expected", _expected);
    visitor.Write("m_Found", _found);
    visitor.Write("m_Command", _command);
}

omu_ArgTypeErrorException::omu_ArgTypeErrorException(const cls_ReadVisitor& visitor)
    : omu_ArgTypeErrorException(visitor.Read("m_Argument", 0), visitor.Read("m_Expected", cow_String()),
                                visitor.Read("m_Found", cow_String()), visitor.Read("m_Command", cow_String())) {}
