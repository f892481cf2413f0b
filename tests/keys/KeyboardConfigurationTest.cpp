#include "Platform/Keyboard/detail/KeyboardConfiguration.h"

#include "Foundation/Seam.h"
#include "Platform/Files/FileSystem.h"

#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace
{

const QString debian = u"/etc/default/keyboard"_s;
const QString server = u"/etc/X11/xorg.conf.d/00-keyboard.conf"_s;
const QString console = u"/etc/vconsole.conf"_s;

/// The machine's settings, in memory.
class Settings final : public FileSystem
{
public:
    explicit Settings(std::map<QString, QByteArray> files) : m_files(std::move(files)) {}

    std::optional<QByteArray> read(const QString &path) override
    {
        const auto file = m_files.find(path);
        return file == m_files.end() ? std::nullopt : std::optional(file->second);
    }
    bool write(const QString &, const QByteArray &) override { return false; }
    void keepCopy(const QString &, const QStringList &) override {}
    void createDirectory(const QString &) override {}
    void remove(const QString &) override {}
    bool exists(const QString &path) override { return m_files.contains(path); }
    bool isDirectory(const QString &) override { return false; }

private:
    std::map<QString, QByteArray> m_files;
    Seam<FileSystem>::Replacement m_replacement{*this};
};

TEST(KeyboardConfiguration, ReadsDebiansFile)
{
    const Settings settings(
        {{debian, "# KEYBOARD CONFIGURATION FILE\n\nXKBMODEL=\"pc105\"\nXKBLAYOUT=\"de,us\"\n"
                  "XKBVARIANT=\"nodeadkeys,\"\nXKBOPTIONS=\"grp:alt_shift_toggle\"\n\n"
                  "BACKSPACE=\"guess\"\n"}});
    EXPECT_EQ(configuredKeyboard(),
              (XkbKeymap::Names{"pc105", "de,us", "nodeadkeys,", "grp:alt_shift_toggle"}));
}

TEST(KeyboardConfiguration, TakesAssignmentsInAnyShellSpelling)
{
    for (const char *line : {"XKBLAYOUT=fr", "  XKBLAYOUT='fr'  ", "XKBLAYOUT=\"fr\" # mine",
                             "XKBMODEL=\nXKBLAYOUT=fr\nXKBVARIANT=\"\""}) {
        const Settings settings({{debian, line}});
        EXPECT_EQ(configuredKeyboard(), (XkbKeymap::Names{.layout = "fr"})) << line;
    }
}

TEST(KeyboardConfiguration, ReadsWhatLocalectlWroteForX)
{
    const Settings settings({{debian, "XKBLAYOUT=\"\"\n"},
                             {server, "Section \"InputClass\"\n        Identifier \"system-keyboard\"\n"
                                      "        MatchIsKeyboard \"on\"\n"
                                      "        Option \"XkbLayout\" \"gb\"\n"
                                      "        Option \"XkbModel\" \"pc105\"\n"
                                      "        Option \"XkbVariant\" \"dvorak\"\nEndSection\n"},
                             {console, "XKBLAYOUT=us\n"}});
    EXPECT_EQ(configuredKeyboard(), (XkbKeymap::Names{"pc105", "gb", "dvorak", ""}));
}

TEST(KeyboardConfiguration, ReadsWhatLocalectlWroteForTheConsole)
{
    const Settings settings({{console, "KEYMAP=de-latin1\nXKBLAYOUT=de\nXKBVARIANT=nodeadkeys\n"}});
    EXPECT_EQ(configuredKeyboard(), (XkbKeymap::Names{.layout = "de", .variant = "nodeadkeys"}));
}

TEST(KeyboardConfiguration, IsNothingWithoutTheFiles)
{
    const Settings settings({});
    EXPECT_EQ(configuredKeyboard(), std::nullopt);
}

TEST(KeyboardConfiguration, IsNothingWhereNoFileNamesALayout)
{
    const Settings settings({{debian, "# XKBLAYOUT=de\nNOXKBLAYOUT=fr\n"},
                             {server, "# Option \"XkbLayout\" \"gb\"\n\xff\xfe"},
                             {console, "KEYMAP=us\n"}});
    EXPECT_EQ(configuredKeyboard(), std::nullopt);
}

} // namespace
