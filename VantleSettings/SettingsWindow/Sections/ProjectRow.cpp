#include "SettingsWindow/Sections/ProjectRow.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Components/RowLayout.h"
#include "Components/SidebarIcon.h"
#include "Components/Style/FocusRing.h"
#include "Components/Text/Label.h"
#include "Components/Text/PatternsEditor.h"
#include "Platform/Files/Path.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/AccessibleText.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStringBuilder>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int editorGap = 8;
constexpr int editorPadding = 8;
constexpr int editorPaddingVertical = 6;
constexpr int editorRadius = 6;
constexpr qsizetype heightLimit = 10000; ///< in characters: these fill the highest editor

/// The rounded background around an editor.
class EditorBackground : public QWidget
{
public:
    explicit EditorBackground(PatternsEditor *editor)
    {
        auto *layout = new QVBoxLayout(this);
        layout->setContentsMargins(editorPadding, editorPaddingVertical, editorPadding,
                                   editorPaddingVertical);
        layout->addWidget(editor);
        FocusRing::setFrame(editor, this);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        QColor background = Tokens::quaternaryFill;
        background.setAlphaF(background.alphaF() / 2);
        fillShape(painter, continuousRectangle(rect(), editorRadius), background);
    }
};

} // namespace

ProjectRow::ProjectRow(const BrowserConfigProject &project, QWidget *parent)
    : QWidget(parent), m_editor(new PatternsEditor)
{
    auto *name = new ElidedLabel(Path::lastComponent(project.root).toString(), TextStyle::size13Semibold);
    auto *root = new ElidedLabel(project.root, TextStyle::size11, TextColor::secondary);
    setDescribes(name, m_editor);
    setDescribes(root, m_editor);
    auto *header = rowLayout(new SidebarIcon(u"folder.fill"_s, SystemColor::blue), rowTexts({name, root}));
    header->setContentsMargins(0, 0, 0, 0); // the row's own layout has the margins

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Tokens::rowPadding, Tokens::rowPaddingVertical, Tokens::rowPadding,
                               Tokens::rowPaddingVertical);
    layout->setSpacing(editorGap);
    layout->addLayout(header);
    layout->addWidget(new EditorBackground(m_editor));

    m_editor->setText(project.urls);
    m_editor->setAccessibleName(accessibleText(u"URL patterns for "_s % project.root));
}

std::function<int(const BrowserConfigProject &)> ProjectRow::expectedHeight()
{
    const int rest =
        rowHeight(TextStyle::size13Semibold, TextStyle::size11) + editorGap + 2 * editorPaddingVertical;
    return [rest, editor = PatternsEditor::expectedHeight()](const BrowserConfigProject &project) {
        const QStringView urls(project.urls);
        return rest + editor(urls.first(std::min(urls.size(), heightLimit)).count(u'\n') + 1);
    };
}
