#include "engine/PdfPages.h"

#include <QBuffer>
#include <QObject>
#include <QPainter>
#include <QPdfDocument>

namespace engine {

namespace {

class QtPdfPages : public PdfPages
{
public:
    explicit QtPdfPages(const QByteArray &pdf)
    {
        m_bytes.setData(pdf);
        m_bytes.open(QIODevice::ReadOnly);
        m_document.load(&m_bytes);
    }
    bool isGood() const { return m_document.status() == QPdfDocument::Status::Ready && m_document.pageCount() > 0; }

    int count() const override { return m_document.pageCount(); }
    QSizeF pointSize(int page) const override { return m_document.pagePointSize(page); }
    QImage render(int page, const QSize &whole, const QRect &clip) const override
    {
        QPdfDocumentRenderOptions options;
        options.setScaledSize(whole);
        options.setScaledClipRect(clip);
        options.setRenderFlags(QPdfDocumentRenderOptions::RenderFlag::Annotations);
        // Where the page is not painted it stays transparent, and paper is white.
        QImage paper(clip.size(), QImage::Format_RGB32);
        paper.fill(Qt::white);
        QPainter(&paper).drawImage(0, 0, m_document.render(page, clip.size(), options));
        return paper;
    }

private:
    QBuffer m_bytes;
    // Rendering changes nothing that can be seen, but is not const in the library.
    mutable QPdfDocument m_document;
};

} // namespace

class QtPdfReader : public QObject, public PdfReader
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "corvane.PdfReader/1")
    Q_INTERFACES(engine::PdfReader)
public:
    std::unique_ptr<PdfPages> open(const QByteArray &pdf) const override
    {
        auto pages = std::make_unique<QtPdfPages>(pdf);
        if (!pages->isGood())
            return nullptr;
        return pages;
    }
};

} // namespace engine

#include "QtPdfReader.moc"
