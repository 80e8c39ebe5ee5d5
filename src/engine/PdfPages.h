#pragma once

#include <QByteArray>
#include <QImage>
#include <QSizeF>
#include <QtPlugin>
#include <memory>

namespace engine {

/// The pages of a PDF.
class PdfPages
{
public:
    virtual ~PdfPages() = default;
    virtual int count() const = 0;
    /// In points (1/72 inch). `page` counts from 0.
    virtual QSizeF pointSize(int page) const = 0;
    /// The part `clip` of a page that is drawn `whole` pixels large, on white.
    virtual QImage render(int page, const QSize &whole, const QRect &clip) const = 0;
};

/// What the reader of PDFs offers. It is a library of its own that is loaded when it is needed for the first time: few
/// runs of the program print, and all of them start.
class PdfReader
{
public:
    virtual ~PdfReader() = default;
    /// Null for bytes that are no PDF.
    virtual std::unique_ptr<PdfPages> open(const QByteArray &pdf) const = 0;
};

/// Null as well when the library is missing.
std::unique_ptr<PdfPages> openPdf(const QByteArray &pdf);

} // namespace engine

Q_DECLARE_INTERFACE(engine::PdfReader, "corvane.PdfReader/1")
