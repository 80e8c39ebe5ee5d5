#include "support/DocumentFixture.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

void FakeMainWindow::LoadNewDoc(QString &url)
{
    opened += url;
    opener->LoadNewDoc(url);
}

void FakeMainWindow::SaveAllDocuments()
{
    calls += u"SaveAllDocuments"_s;
    saved->SaveAllDocuments();
}

void FakeMainWindow::LoadAllDocuments()
{
    calls += u"LoadAllDocuments"_s;
    saved->LoadAllDocuments();
}

DocumentFixture::DocumentFixture()
    : paths(desktop::Paths::below(folder.path()))
    , store(folder.filePath(u"settings.ini"_s))
    , mdi(&window)
    , tabs(&window)
    , addressBar(&window)
    , statusBar(&window)
    , bands(&window)
    , navigator(&window, main, settings, mdi)
    , siteBlocker(settings, paths.programFolder)
    , formKeys(paths.programFolder)
    , context{main,       settings,  flags, engine,    dialogs,     paths, mdi,     tabs,
              addressBar, statusBar, bands, navigator, siteBlocker, sound, formKeys}
    , opener(context)
    , saved(store, settings, navigator, main)
{
    main.mdi = &mdi;
    main.opener = &opener;
    main.saved = &saved;
    settings.EnableImages = settings.EnableSound = settings.EnableVideo = settings.EnableScripts = true;
    settings.EnableJava = settings.EnableActiveXDL = settings.EnableActiveXRUN = settings.EnableFlash = true;
    settings.SitesHome1 = u"http://home.example/"_s;
    for (int panel = 1; panel <= 7; ++panel)
        statusBar.AddPanel(0, QString(), -1, 16, panel == 1, u"Item"_s + QString::number(panel));

    auto *layout = new QVBoxLayout(&window);
    for (QWidget *part : std::initializer_list<QWidget *>{&bands, &addressBar, &tabs, &mdi, &statusBar})
        layout->addWidget(part);
    layout->setStretchFactor(&mdi, 1);
    window.resize(900, 700);
    window.show();
}

DocumentFixture::~DocumentFixture()
{
    const QList<QWidget *> forms = mdi.forms();
    for (QWidget *form : forms)
        if (auto *document = qobject_cast<Document *>(form))
            document->Unload();
    deleteClosed();
}

frmDocument &DocumentFixture::open(const QString &url)
{
    main.LoadNewDoc(url);
    return document(count());
}

QString DocumentFixture::disorder()
{
    QStringList faults;
    if (count() != tabs.Tabs().Count() || count() != flags.OpenDocumentCount)
        faults +=
            u"%1 lines, %2 tabs, %3 documents"_s.arg(count()).arg(tabs.Tabs().Count()).arg(flags.OpenDocumentCount);
    for (int n = 1; n <= count(); ++n)
        if (document(n).position() != n)
            faults += u"line %1 holds the document at %2"_s.arg(n).arg(document(n).position());
    return faults.join(u"; "_s);
}
