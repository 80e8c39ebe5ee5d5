#pragma once

#include "documents/DocumentContext.h"

#include <QObject>

class frmDocument;

/// Opens addresses in new documents, and hands what happens to the MDI children on to their documents.
class DocumentOpener : public QObject
{
    Q_OBJECT
public:
    explicit DocumentOpener(DocumentContext &context);

    /// The one way to a new tab for an address. An internet shortcut file gives the address inside, which `url`
    /// becomes; anything else goes to the browser unchecked. Errors cost one step each.
    void LoadNewDoc(QString &url);

private:
    void openDocument(const QString &url);
    void addToRegister(frmDocument &document, const QString &url);
    void addAddress(const QString &url);

    DocumentContext &m_context;
};
