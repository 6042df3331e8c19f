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

/// Objects stacked on the screen, back to front. An object that leaves stays in the model until its exit
/// animation ends; then QML removes it. An object's "kind" role, which chooses its delegate, is its class
/// name.
class Stage : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The phone creates stages")
    /// The topmost object that is not leaving, or null.
    Q_PROPERTY(QObject* top READ top NOTIFY topChanged)
    /// The number of objects that are not leaving.
    Q_PROPERTY(int depth READ depth NOTIFY topChanged)

  public:
    /// Creates the QML object for a framework object; returns null for one that is not drawn.
    using Make = std::function<std::unique_ptr<QObject>(const std::shared_ptr<NSObject>&)>;
    explicit Stage(Make make);
    ~Stage() override;

    /// Sets the current objects, back to front.
    void show(const std::vector<std::shared_ptr<NSObject>>& objects);

    QObject* top() const;
    int depth() const;
    /// QML calls this when a leaving object's exit animation has ended.
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
