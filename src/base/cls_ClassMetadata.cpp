#include <base/atr_String.h>
#include <base/cls_ClassMetadata.h>
#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>

#include <algorithm>

cls_ClassMetadata::cls_ClassMetadata(const char* name, unsigned id, unsigned number, unsigned baseId)
    : _name(name), _id(id), _number(number), _baseId(baseId) {}

cls_ClassMetadata& cls_ClassMetadata::Attribute(const char* name, cls_AttributeType type, unsigned classId,
                                                cls_CollectionType collection) {
    if (cls_SlotSize(type) == 0 && !cls_IsStringType(type) && type != cls_ObjectAttribute)
        nex_Throw(nex_PrimException(
            cow_String(atr("attribute %s: type %d cannot be stored", name, static_cast<int>(type)).c_str())));

    const auto [node, isNew] =
        _attributes.insert_or_assign(name, cls_Attribute{type, classId, collection, cls_SlotSize(type)});
    if (isNew) _registered.push_back(&*node);

    _blockSize = 0;
    _stringCount = 0;
    _objects.clear();
    for (auto& [key, attribute] : _attributes) {
        if (attribute.type == cls_ObjectAttribute) {
            attribute.slot = static_cast<int>(_objects.size());
            _objects.push_back(&attribute);
        } else if (cls_IsStringType(attribute.type)) {
            attribute.slot = _stringCount++;
        } else {
            attribute.slot = _blockSize;
            _blockSize += attribute.slotSize;
        }
    }
    return *this;
}

cow_List<cow_String> cls_ClassMetadata::AttributeNames() const {
    cow_List<cow_String> names;
    for (const Node* node : _registered) names.Append(cow_String(node->first));
    return names;
}
