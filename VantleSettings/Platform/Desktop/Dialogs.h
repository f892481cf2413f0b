#pragma once

#include <QString>

#include <optional>

/// Asking the user to pick a folder.
struct DirectoryQuestion {
    QString title;
    QString message;              ///< why, in a sentence, where the desktop's dialog has room for it
    QString prompt;               ///< the accepting button
    std::optional<QString> start; ///< the folder to begin in, else the desktop's own choice
};

/// Asking the user to agree to an action that can't be taken back.
struct Confirmation {
    enum class Style { warning, critical };

    QString message;
    QString informative;
    Style style = Style::warning;
    QString action; ///< the first and default button; the other is Cancel
};

/// Modal questions. The event loop runs until they are answered, so the object that asks may be destroyed
/// before the call returns.
class Dialogs
{
public:
    virtual ~Dialogs() = default;
    Q_DISABLE_COPY_MOVE(Dialogs)

    /// The absolute path of an existing folder, or nothing when the user cancels.
    virtual std::optional<QString> chooseDirectory(const DirectoryQuestion &question) = 0;

    /// Whether the user chose the action.
    virtual bool confirm(const Confirmation &confirmation) = 0;

    static Dialogs &system();

protected:
    Dialogs() = default;
};
