#pragma once

#include <QByteArray>
#include <QPageLayout>
#include <QString>

namespace engine {

/// How pages are laid out on paper.
struct PageSetup
{
    /// Margins in millimeters, 0 to kLargestMargin.
    QPageLayout layout = standardLayout();
    /// Background colors and pictures are printed too.
    bool background = false;

    static constexpr double kLargestMargin = 80;

    /// The margins leave enough room for a page: 20 mm each way.
    bool isPrintable() const;

    /// The paper of the user's country with margins of 15 mm.
    static QPageLayout standardLayout();

    /// One "name=value" a line. A value that is missing or makes no sense leaves the standard.
    QByteArray toText() const;
    static PageSetup fromText(const QByteArray &text);

    bool operator==(const PageSetup &other) const { return layout == other.layout && background == other.background; }
};

/// What the page commands of all documents have in common: the page setup, which a file keeps over the runs of the
/// program, and the folder that was saved to last.
class PageMemory
{
public:
    /// An empty name keeps nothing.
    explicit PageMemory(const QString &file)
        : m_file(file)
    {}

    const PageSetup &setup();
    void setSetup(const PageSetup &setup);

    /// The user's documents before the first time, or the home folder where there are none.
    QString folder() const;
    void setFolder(const QString &folder) { m_folder = folder; }

private:
    QString m_file;
    QString m_folder;
    PageSetup m_setup;
    bool m_read = false;
};

} // namespace engine
