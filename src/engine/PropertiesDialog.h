#pragma once

#include "engine/Certificate.h"
#include "engine/PageFacets.h"

#include <QDialog>

class QFormLayout;
class QLineEdit;

namespace engine {

/// Shows what is known of a page; every value can be selected and copied. For a secure page the certificate of its site
/// is fetched and shown too.
class PropertiesDialog : public QDialog
{
    Q_OBJECT
public:
    PropertiesDialog(const PageInfo &info, QWidget *parent);

private:
    QLineEdit *addLine(QFormLayout *form, int caption, const QString &name, const QString &value);
    void addPageLines(QFormLayout *form, const PageInfo &info);
    QWidget *certificateBox(const PageInfo &info);
    void showCertificate(QFormLayout *form, const Certificate &certificate);
};

} // namespace engine
