#include "platform/uikit/views/UITableViewCell.h"

namespace prismo {

const Class& UITableViewCell::classObject() {
    static const Class objectClass("UITableViewCell", &UIView::classObject(),
                                   [] { return std::make_shared<UITableViewCell>(); });
    return objectClass;
}

} // namespace prismo
