#include <base/cls_MetadataRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/cow_CountedHld.h>
#include <base/nex_CommandException.h>
#include <omu/omu_PrimException.h>
#include <omu/omu_PrimVisitor.h>

#include <string_view>

namespace {

using Holder = cow_CountedHld<nex_CommandException>;

/// What stands for `exception` in a stream.
Holder Storable(const nex_Exception& exception) {
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    const auto* const command = dynamic_cast<const nex_CommandException*>(&exception);
    if (command != nullptr && registrar.Inherits(command->DynTypeId(), nex_CommandException::TypeId()))
        return Holder(command->Copy());
    return Holder(new nex_CommandException(cow_String(std::string_view(exception.what()))));
}

std::shared_ptr<const nex_Exception> Stored(const Holder& holder) {
    if (!holder.IsNull()) return holder.Share();
    return std::make_shared<nex_CommandException>(cow_String());
}

}  // namespace

omu_PrimException::omu_PrimException(const nex_Exception& exception, const cow_String& traceback)
    : omu_Primitive('E'), _exception(exception.Copy()), _traceback(traceback) {}

cow_String omu_PrimException::TypeString() const { return "exception"; }
cow_String omu_PrimException::AsString(int) const { return "omu_PrimException object"; }
void omu_PrimException::Accept(omu_PrimVisitor* visitor) const { visitor->VisitException(*this); }
std::unique_ptr<omu_Primitive> omu_PrimException::Copy() const { return std::make_unique<omu_PrimException>(*this); }

bool omu_PrimException::IsEqual(const omu_Primitive& other) const {
    const auto* const value = SameKind<omu_PrimException>(other);
    return value != nullptr && _exception->DynTypeId() == value->_exception->DynTypeId() &&
           std::string_view(_exception->what()) == value->_exception->what();
}

// ---- Persistence

unsigned omu_PrimException::DynTypeId() const { return TypeId(); }

void omu_PrimException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimException, omu_Primitive>("omu_PrimException", omu_MetadataNumber)
        .Add<Holder>("m_Exception")
        .Add<cow_String>("m_Traceback");
}

void omu_PrimException::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_Primitive::DBWrite(visitor.Base(omu_Primitive::TypeId()));
    visitor.Write("m_Exception", Storable(*_exception));
    visitor.Write("m_Traceback", _traceback);
}

omu_PrimException::omu_PrimException(const cls_ReadVisitor& visitor)
    : omu_Primitive(visitor.Base(), 'E'),
      _exception(Stored(visitor.Read("m_Exception", Holder()))),
      _traceback(visitor.Read("m_Traceback", cow_String())) {}
