#include "Platform/Desktop/Dialogs.h"
#include "Platform/Desktop/detail/ConfirmationDialog.h"
#include "Platform/Desktop/detail/DirectoryPortal.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QPointer>
#include <QSettings>

namespace
{

/// Runs a dialog until it is answered. False also when the dialog is destroyed with its parent window
/// meanwhile.
bool accepted(const QPointer<QDialog> &dialog)
{
    return dialog->exec() == QDialog::Accepted && dialog;
}

/// The folder itself, or the nearest one above it that still exists.
QString nearestExisting(QString folder)
{
    if (folder.size() >= FileSystem::tooLong)
        folder.truncate(qMax(folder.lastIndexOf(u'/', FileSystem::tooLong - 1), 0));
    while (!QDir(folder).exists() && folder.lastIndexOf(u'/') > 0)
        folder.truncate(folder.lastIndexOf(u'/'));
    return folder;
}

/// The toolkit's dialog would keep a record of the folders it was in, in a file of its own in the home
/// directory. Its settings, which this program doesn't use otherwise, are given a path where nothing can be
/// written.
void disableDialogHistory()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

/// Puts the message above the dialog's controls. A dialog of the platform theme has none of these controls,
/// nor a place for a message.
void showMessage(QFileDialog &dialog, const QString &message)
{
    dialog.setAccessibleDescription(message);
    if (!dialog.layout())
        return;
    auto *label = new QLabel(message, &dialog);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setContentsMargins(dialog.layout()->contentsMargins());
    setAccessibleRole(label, QAccessible::StaticText);
    label->setAccessibleName(message);
    setDescribes(label, &dialog);
    dialog.layout()->setMenuBar(label); // the only place that a layout has above all rows
}

/// The toolkit's dialog, or that of its platform theme for this desktop.
std::optional<QString> chooseInOwnDialog(const DirectoryQuestion &question)
{
    disableDialogHistory();
    const QPointer<QFileDialog> dialog =
        new QFileDialog(QApplication::activeWindow(), question.title, question.start.value_or(QString()));
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setSupportedSchemes({QStringLiteral("file")}); // a desktop's dialog may offer the network, too
    dialog->setLabelText(QFileDialog::Accept, question.prompt);
    showMessage(*dialog, question.message);
    QString folder;
    if (accepted(dialog.data()))
        folder = dialog->selectedFiles().value(0);
    delete dialog;
    return folder.startsWith(u'/') ? std::optional(folder) : std::nullopt;
}

/// The window that a question is asked for: the active one, or else a visible one, because a touch or a
/// screen reader can use a window without activating it.
QMainWindow *askingWindow()
{
    if (auto *active = qobject_cast<QMainWindow *>(QApplication::activeWindow()))
        return active;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *window = qobject_cast<QMainWindow *>(widget); window && window->isVisible())
            return window;
    }
    return nullptr;
}

class ModalDialogs : public Dialogs
{
public:
    std::optional<QString> chooseDirectory(const DirectoryQuestion &question) override
    {
        DirectoryQuestion asked = question;
        asked.start = nearestExisting(question.start.value_or(homeDirectory().value_or(QDir::rootPath())));
        const auto answer = DirectoryPortal(QDBusConnection::sessionBus()).ask(asked, askingWindow());
        if (answer.outcome == DirectoryPortal::Outcome::unavailable)
            return chooseInOwnDialog(asked);
        if (answer.outcome == DirectoryPortal::Outcome::cancelled || answer.folder.isEmpty())
            return std::nullopt;
        return answer.folder;
    }

    bool confirm(const Confirmation &confirmation) override
    {
        const QPointer<QDialog> dialog = new ConfirmationDialog(confirmation, QApplication::activeWindow());
        const bool agreed = accepted(dialog);
        delete dialog;
        return agreed;
    }
};

} // namespace

Dialogs &Dialogs::system()
{
    static ModalDialogs dialogs;
    return dialogs;
}
