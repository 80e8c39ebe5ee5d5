#pragma once

#include "engine/InternetOptions.h"

#include <QWidget>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSpinBox;

namespace engine {

/// One tab of the options: shows its part of the settings and gives it back.
class OptionPage : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;
    virtual void load(const EngineSettings &settings) = 0;
    virtual void store(EngineSettings &settings) const = 0;
    /// What is wrong with the input, as a sentence; empty for nothing.
    virtual QString problem() const { return {}; }

signals:
    void changed();
};

/// The cache, and clearing what browsing has left behind.
class GeneralPage : public OptionPage
{
    Q_OBJECT
public:
    explicit GeneralPage(OptionsHost &host);
    void load(const EngineSettings &settings) override;
    void store(EngineSettings &settings) const override;

private:
    QWidget *cacheBox();
    QWidget *clearBox();
    Traces chosen() const;
    void clearNow();

    OptionsHost &m_host;
    QButtonGroup *m_cache;
    QSpinBox *txtCacheSize;
    QCheckBox *chkTemp;
    QCheckBox *chkCookies;
    QCheckBox *chkHistory;
    QPushButton *btnClear;
    QLabel *lblCleared;
};

/// The proxy server.
class ConnectionPage : public OptionPage
{
    Q_OBJECT
public:
    ConnectionPage();
    void load(const EngineSettings &settings) override;
    void store(EngineSettings &settings) const override;
    QString problem() const override;

private:
    bool isManual() const;

    QButtonGroup *m_mode;
    QWidget *m_server;
    QComboBox *cmbProxyType;
    QLineEdit *txtProxyHost;
    QSpinBox *txtProxyPort;
    QLineEdit *txtProxyUser;
};

/// Cookies and tracking.
class PrivacyPage : public OptionPage
{
    Q_OBJECT
public:
    PrivacyPage();
    void load(const EngineSettings &settings) override;
    void store(EngineSettings &settings) const override;

private:
    QButtonGroup *m_cookies;
    QCheckBox *chkForget;
    QCheckBox *chkDoNotTrack;
};

/// The languages that sites are asked for.
class LanguagesPage : public OptionPage
{
    Q_OBJECT
public:
    LanguagesPage();
    void load(const EngineSettings &settings) override;
    void store(EngineSettings &settings) const override;
    QString problem() const override;

protected:
    /// Enter in the line of the new language adds it and does not close the dialog.
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *listBox();
    QWidget *newLanguageRow();
    void fillChoices();
    void append(const QString &code);
    void add();
    void removeCurrent();
    void moveCurrent(int step);
    QString typedCode() const;
    void updateButtons();

    QCheckBox *chkSystem;
    QListWidget *lstLanguages;
    QComboBox *cmbLanguage;
    QPushButton *btnAdd;
    QPushButton *btnRemove;
    QPushButton *btnUp;
    QPushButton *btnDown;
};

/// The folder for downloads.
class DownloadsPage : public OptionPage
{
    Q_OBJECT
public:
    explicit DownloadsPage(const QString &systemFolder);
    void load(const EngineSettings &settings) override;
    void store(EngineSettings &settings) const override;
    QString problem() const override;

private:
    QString folder() const;
    void browse();

    QString m_systemFolder;
    QLineEdit *txtFolder;
    QPushButton *btnSystemFolder;
};

/// What sites are told about the browser.
class IdentificationPage : public OptionPage
{
    Q_OBJECT
public:
    explicit IdentificationPage(const QString &ownAgent);
    void load(const EngineSettings &settings) override;
    void store(EngineSettings &settings) const override;
    QString problem() const override;

private:
    void showAgent();

    QString m_ownAgent;
    QString m_customAgent;
    QButtonGroup *m_agent;
    QLineEdit *txtAgent;
};

} // namespace engine
