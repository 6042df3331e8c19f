#include "kit/FBBarButtonItem.h"

namespace prismo {

const Class& FBBarButtonItem::classObject() {
    static const Class objectClass("FBBarButtonItem", &UIBarButtonItem::classObject(),
                                   [] { return std::make_shared<FBBarButtonItem>(); });
    return objectClass;
}

} // namespace prismo
