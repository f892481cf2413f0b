#pragma once

#include "FakeServices.h"
#include "Foundation/Seam.h"
#include "HomeFiles.h"
#include "Model/SettingsModel.h"
#include "Platform/Desktop/Dialogs.h"
#include "Platform/Desktop/Pasteboard.h"
#include "Platform/Desktop/Workspace.h"
#include "SettingsWindow/Sections/SectionContent.h"

#include <QScrollArea>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

class Label;
class QPushButton;

/// A page in a window that scrolls, with the files of the test's own home. Requests to the desktop and the
/// agent are only recorded.
class PageTest : public testing::Test
{
protected:
    /// Makes the model from the files so far and shows a page of it.
    template <class Section>
    Section &show()
    {
        model = std::make_unique<SettingsModel>();
        auto *section = new Section(*model);
        page = section;
        putIntoWindow();
        return *section;
    }

    static void processEvents();
    void closePage();

    void choosePlanningRoot(const QString &root) const;
    void putManifest(const QByteArray &toml) const;

    QPushButton *button(const QString &name) const; ///< by accessible name; null where none is shown
    void click(const QString &name) const;
    void press(const QKeySequence &shortcut);
    QStringList texts() const; ///< of every label shown, from top to bottom
    bool shows(const QString &text) const { return texts().contains(text); }
    QWidget *group(const QString &header) const; ///< null where none is shown

    struct FakeDialogs final : Dialogs {
        std::optional<QString> chooseDirectory(const DirectoryQuestion &question) override;
        bool confirm(const Confirmation &confirmation) override;
        std::vector<DirectoryQuestion> directoryQuestions;
        std::vector<Confirmation> confirmations;
        std::optional<QString> folder;           ///< the answer of chooseDirectory()
        bool agree = false;                      ///< the answer of confirm()
        std::function<void()> meanwhile = [] {}; ///< called before each answer
    } dialogs;
    struct RecordingWorkspace final : Workspace {
        void reveal(const QString &path) override { revealed << path; }
        void open(const QString &path) override { opened << path; }
        QStringList revealed;
        QStringList opened;
    } workspace;
    struct RecordingPasteboard final : Pasteboard {
        void setText(const QString &text) override { texts << text; }
        QStringList texts;
    } pasteboard;
    FakeLoopbackPost posts;
    FakeServiceManager service;

    Seam<Dialogs>::Replacement dialogsSeam{dialogs};
    Seam<Workspace>::Replacement workspaceSeam{workspace};
    Seam<Pasteboard>::Replacement pasteboardSeam{pasteboard};
    Seam<LoopbackPost>::Replacement postsSeam{posts};
    Seam<ServiceManager>::Replacement serviceSeam{service};

    std::unique_ptr<SettingsModel> model;
    std::unique_ptr<QScrollArea> window;
    SectionContent *page = nullptr;

private:
    void putIntoWindow();
};
