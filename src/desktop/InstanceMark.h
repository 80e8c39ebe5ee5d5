#pragma once

#include <QByteArray>
#include <QObject>
#include <functional>
#include <memory>

namespace desktop {

/// The mark of a main window: a local socket in the runtime folder on which messages of later processes arrive. It ends
/// with this object.
class InstanceMark : public QObject
{
    Q_OBJECT
public:
    /// `receive` gets cbData and the bytes; the sender is answered when it returns.
    using Receiver = std::function<void(int32_t cbData, const QByteArray &bytes)>;

    InstanceMark(const QString &runtimeFolder, Receiver receive, QObject *parent = nullptr);
    ~InstanceMark() override;
    bool isListening() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace desktop
