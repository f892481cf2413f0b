#include "PageStates.h"

#include "AppDelegate/MainMenu.h"
#include "Components/Picker.h"
#include "Components/Switch.h"
#include "Components/Text/Label.h"
#include "Model/SettingsModel.h"
#include "SampleDesk.h"
#include "SettingsWindow/SettingsRootView.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>

#include <functional>

using namespace Qt::StringLiterals;

namespace
{

constexpr QSize windowSize(860, 640);
const QString installedProgram = u"/usr/bin/vantle-settings"_s;

/// The window's view with a model and a world of its own.
class SampleWindow : public QMainWindow
{
public:
    SampleWindow(SettingsSection section, const std::function<void(SampleDesk &)> &fill)
    {
        fill(m_desk);
        m_model = std::make_unique<SettingsModel>();
        m_model->section = section;
        auto *view = new SettingsRootView(*m_model, 0);
        for (auto *label : view->findChildren<ElidedLabel *>()) {
            if (label->text() == QCoreApplication::applicationFilePath())
                label->setText(installedProgram);
        }
        setCentralWidget(view);
    }

    ~SampleWindow() override { delete takeCentralWidget(); }

private:
    SampleDesk m_desk;
    std::unique_ptr<SettingsModel> m_model;
};

Screenshot window(const QString &name, SettingsSection section, const std::function<void(SampleDesk &)> &fill,
                  QSize size = windowSize)
{
    return {name, size, [=] { return std::make_unique<SampleWindow>(section, fill); }};
}

/// The same, only to be looked at: it is not compared with a stored picture.
Screenshot notStored(Screenshot screenshot)
{
    screenshot.stored = false;
    return screenshot;
}

Screenshot afterwards(Screenshot screenshot, const std::function<void(QWidget &)> &prepare)
{
    screenshot.prepare = prepare;
    return screenshot;
}

/// The visible control that has the name, or is given it by its accessible interface.
template <class Control>
Control &named(QWidget &window, const QString &name)
{
    for (auto *control : window.findChildren<Control *>()) {
        const QAccessibleInterface *tree = QAccessible::queryAccessibleInterface(control);
        const bool isNamed = control->accessibleName() == name || tree->text(QAccessible::Name) == name;
        if (isNamed && control->isVisible())
            return *control;
    }
    qFatal("nothing is called %s", qPrintable(name));
}

std::function<void(QWidget &)> press(const QString &name)
{
    return [=](QWidget &window) { named<QAbstractButton>(window, name).click(); };
}

std::function<void(QWidget &)> open(const QString &name)
{
    return [=](QWidget &window) { named<Picker>(window, name).showPopup(); };
}

/// The menu bar, as it stands in the window where the system has no place of its own for it.
void showMenuBar(QWidget &window)
{
    buildMainMenu(static_cast<QMainWindow &>(window));
}

std::function<void(QWidget &)> openMenu(const QString &title)
{
    return [=](QWidget &window) {
        showMenuBar(window);
        QMenuBar &bar = *static_cast<QMainWindow &>(window).menuBar();
        for (QAction *action : bar.actions()) {
            if (action->text() == title)
                bar.setActiveAction(action);
        }
    };
}

/// As if the user had come to this switch with the Tab key.
std::function<void(QWidget &)> tabTo(const QString &name)
{
    return [=](QWidget &window) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        qApp->notify(&window, &key);
        QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
        qApp->notify(&named<Switch>(window, name), &focus);
    };
}

void demo(SampleDesk &desk)
{
    desk.put(u".vantle/demo-mode.json"_s, R"({"enabled":true})");
}

void nothing(SampleDesk &)
{
}

void someSettings(SampleDesk &desk)
{
    desk.put(u".vantle/typeface.json"_s, R"({"name":"jetbrains-mono"})");
    desk.put(u".vantle/updates.json"_s, R"({"automatic":true})");
}

void emptyRoot(SampleDesk &desk)
{
    desk.put(u".vantle/planning.json"_s, R"({"root":""})");
}

void missingManifest(SampleDesk &desk)
{
    desk.put(u".vantle/planning.json"_s, R"({"root":"/Users/sam/planning"})");
}

void emptyManifest(SampleDesk &desk)
{
    missingManifest(desk);
    desk.put(u"planning/projects.toml"_s, "# nothing yet\n");
}

void someProjects(SampleDesk &desk)
{
    missingManifest(desk);
    desk.put(u"planning/projects.toml"_s, R"([[projects]]
name = "Vantle Agent"
path = "/Users/sam/code/vantle"
todo_path = "/Users/sam/code/vantle/TODO.toml"

[[projects]]
name = "Browser Capture"
path = "/Users/sam/code/vantle-browser"

[[projects]]
name = "Archive"
path = "/Users/sam/code/old/archive-of-everything-that-was-tried-before-the-rewrite/and-never-looked-at-again"
)");
    desk.putFolder(u"code/vantle"_s);
    desk.put(u"code/vantle/TODO.toml"_s, {});
    desk.putFolder(u"code/vantle-browser"_s);
    desk.put(u".vantle/sessions.json"_s,
             R"([{"cwd":"/Users/sam/code/vantle"},{"cwd":"/Users/sam/code/vantle/src"},
                 {"cwd":"/Users/sam/code/vantle-browser"}])");
}

void manyProjects(SampleDesk &desk)
{
    missingManifest(desk);
    QByteArray manifest;
    for (int number = 1; number <= 10000; ++number) {
        const QByteArray text = QByteArray::number(number);
        manifest += "[[projects]]\nname = \"Project " + text + "\"\npath = \"/Users/sam/code/project-" +
                    text + "\"\n";
    }
    desk.put(u"planning/projects.toml"_s, manifest);
}

void somePatterns(SampleDesk &desk)
{
    desk.put(u".vantle/sessions.json"_s,
             R"([{"cwd":"/Users/sam/code/vantle"},{"cwd":"/Users/sam/code/vantle"},
        {"cwd":"/Users/sam/code/vantle-browser"}])");
    desk.put(u".claude/browser-patterns.json"_s, R"({
        "/Users/sam/code/vantle": ["github.com/sam/vantle/*", "doc.qt.io/*"],
        "/Users/sam/code/vantle-browser": ["developer.mozilla.org/*", "web.dev/*", "localhost:3000/*",
            "github.com/sam/vantle-browser/*", "caniuse.com/*", "github.com/sam/vantle-browser/pull/*",
            "example.com/a/long/address/that/is/wider/than/the/editor/and/so/has/to/wrap/onto/another/line/*",
            "one.example/*", "two.example/*"],
        "/Users/sam/code/vantle-usage": []})");
}

void manyPatterns(SampleDesk &desk)
{
    QByteArray patterns = "{";
    for (int number = 1; number <= 10000; ++number) {
        const QByteArray text = QByteArray::number(number);
        patterns += (number == 1 ? "\"" : ",\"") + ("/Users/sam/code/project-" + text) + "\":[\"host-" +
                    text + ".example/*\"]";
    }
    desk.put(u".claude/browser-patterns.json"_s, patterns + "}");
}

/// Names that a careless window would read as markup, push its controls out of view with, or set backwards.
void hostileNames(SampleDesk &desk)
{
    missingManifest(desk);
    const QByteArray filling = QByteArray("folder-").repeated(1400);
    desk.put(u"planning/projects.toml"_s,
             "[[projects]]\nname = \"<b>bold</b> &amp; <img src=x>\"\npath = \"/Users/sam/<i>\"\n"
             "[[projects]]\nname = \"" +
                 filling + "\"\npath = \"/" + filling +
                 "\"\n"
                 "[[projects]]\nname = \"مشروع التخطيط\"\npath = \"/Users/sam/مشروع/خطة\"\n"
                 "[[projects]]\nname = \"👩‍👩‍👧‍👦🏳️‍🌈 é\"\npath = "
                 "\"/Users/sam/👩‍👩‍👧‍👦\"\n"
                 "[[projects]]\npath = \"\"\n");
    desk.put(u".claude/browser-patterns.json"_s,
             "{\"/<b>&amp;\":[\"<b>x</b>\"],\"/a\\nb\\u2028c\":[\"line\"],\"/مشروع\":[\"مثال\"],\"/" +
                 filling + "\":[\"" + filling + "\"]}");
}

} // namespace

std::vector<Screenshot> pageScreenshots()
{
    constexpr auto planning = SettingsSection::planning;
    constexpr auto browser = SettingsSection::browser;
    constexpr auto general = SettingsSection::general;
    constexpr QSize whole(860, 1080);
    return {
        window(u"general"_s, general, someSettings),
        afterwards(window(u"general-menu-bar"_s, general, someSettings), showMenuBar),
        afterwards(window(u"general-edit-menu"_s, general, someSettings), openMenu(u"Edit"_s)),
        window(u"general-whole"_s, general, someSettings, whole),
        afterwards(window(u"general-recording"_s, general, someSettings, whole),
                   press(u"Focus next notification shortcut"_s)),
        afterwards(window(u"general-picker"_s, general, someSettings), open(u"Terminal"_s)),
        afterwards(window(u"general-keyboard"_s, general, someSettings), tabTo(u"Launch at Login"_s)),
        window(u"planning"_s, planning, someProjects),
        afterwards(window(u"planning-actions"_s, planning, someProjects),
                   press(u"Actions for Vantle Agent"_s)),
        window(u"planning-demo"_s, planning, demo),
        window(u"planning-not-set"_s, planning, nothing),
        window(u"planning-empty-root"_s, planning, emptyRoot),
        window(u"planning-missing-manifest"_s, planning, missingManifest),
        window(u"planning-empty-manifest"_s, planning, emptyManifest),
        notStored(window(u"planning-long"_s, planning, manyProjects)),
        notStored(window(u"planning-hostile"_s, planning, hostileNames, {860, 1000})),
        window(u"browser"_s, browser, somePatterns, {860, 880}),
        window(u"browser-demo"_s, browser, demo, {860, 880}),
        window(u"browser-empty"_s, browser, nothing),
        notStored(window(u"browser-long"_s, browser, manyPatterns)),
        notStored(window(u"browser-hostile"_s, browser, hostileNames, {860, 1000})),
        window(u"data"_s, SettingsSection::data, somePatterns),
        window(u"about"_s, SettingsSection::about, nothing),
    };
}
