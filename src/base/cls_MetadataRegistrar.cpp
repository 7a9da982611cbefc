#include <base/cls_MetadataRegistrar.h>

template class omi_Singleton<cls_MetadataRegistrar>;

cls_MetadataRegistrar& cls_MetadataRegistrar::Instance() { return omi_Singleton<cls_MetadataRegistrar>::Instance(); }

void cls_MetadataRegistrar::initClassMetadata(void (*registerClass)(cls_ClassRegistrar&), unsigned flags) {
    _registrar.ResetArrivals();
    registerClass(_registrar);
    for (cls_ClassMetadata* metadata : _registrar.Arrivals()) {
        metadata->SetFlags(flags);
        const cls_ClassRecord record{metadata->Name(), metadata->Id(), flags, metadata->Number()};
        int known = 0;
        while (known < _classes.Length() && _classes.ConstGet(known).typeId != record.typeId) ++known;
        if (known < _classes.Length())
            _classes.Get(known) = record;
        else
            _classes.Append(record);
    }
}
