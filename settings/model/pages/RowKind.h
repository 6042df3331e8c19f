#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// What a line of a page is. The kind chooses the delegate that draws it.
namespace prismo::settings::RowKind {

Q_NAMESPACE
QML_ELEMENT

/// QML requires capital names.
enum Kind {
    Header,
    Footer,
    Link,
    Switch,
    Segment,
    LinkList,
    Choice,
    Color,
    Button,
    /// A link with a height of its own.
    Tall,
    Application,
};
Q_ENUM_NS(Kind)

} // namespace prismo::settings::RowKind
