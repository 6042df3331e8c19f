#pragma once

#include <functional>
#include <memory>
#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace prismo {
class NSObject;
}

namespace prismo::settings {

/// What is drawn over one another, back to front. What goes stays until its way out has been drawn; then QML
/// removes it. Which delegate draws an object, its kind, is the name of its class.
class Stage : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screen has them")
    /// The topmost of those that stay, or null.
    Q_PROPERTY(QObject* top READ top NOTIFY topChanged)
    /// How many stay.
    Q_PROPERTY(int depth READ depth NOTIFY topChanged)

  public:
    /// Makes the QML object of a framework object; null for one that is not drawn.
    using Make = std::function<std::unique_ptr<QObject>(const std::shared_ptr<NSObject>&)>;
    explicit Stage(Make make);
    ~Stage() override;

    /// These are there now, back to front.
    void show(const std::vector<std::shared_ptr<NSObject>>& objects);

    QObject* top() const;
    int depth() const;
    /// Called when a leaving object is out of sight.
    Q_INVOKABLE void remove(QObject* object);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

  signals:
    void topChanged();

  private:
    struct Entry {
        std::shared_ptr<NSObject> source;
        std::unique_ptr<QObject> object;
        bool isLeaving = false;
    };
    Make make_;
    std::vector<Entry> entries_;
};

} // namespace prismo::settings
