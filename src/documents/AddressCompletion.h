#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class QCompleter;
class QStandardItemModel;
namespace controls {
class ComboBox;
}
namespace engine {
class VisitLog;
}

/// Suggestions below the address bar while the user types: entries of the list first, then pages that were visited.
/// They never touch the text that Enter sends; only a picked suggestion does.
class AddressCompletion : public QObject
{
    Q_OBJECT
public:
    /// Suggestions shown at most.
    static constexpr int kMost = 8;

    AddressCompletion(controls::ComboBox &bar, engine::VisitLog *visits, QObject *parent);

    /// What would be suggested for a text, best first.
    QStringList suggestions(const QString &text) const;

signals:
    void picked(const QString &address);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void suggest();
    void hide();

    controls::ComboBox &m_bar;
    engine::VisitLog *m_visits;
    QCompleter *m_completer;
    QStandardItemModel *m_model;
    QTimer m_pause;
};
