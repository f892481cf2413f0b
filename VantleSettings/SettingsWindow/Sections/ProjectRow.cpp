#include "SettingsWindow/Sections/ProjectRow.h"

#include "Components/FocusRing.h"
#include "Components/Label.h"
#include "Components/Painting.h"
#include "Components/PatternsEditor.h"
#include "Components/SidebarIcon.h"
#include "Components/Tokens.h"
#include "Platform/Files/Path.h"
#include "Platform/Window/AccessibleRole.h"
#include "Platform/Window/AccessibleText.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int lineGap = 2;
constexpr int editorGap = 8;
constexpr int editorPadding = 8;
constexpr int editorPaddingVertical = 6;
constexpr int editorRadius = 6;

/// What an editor stands on.
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
        fill(painter, continuousRectangle(rect(), editorRadius), background);
    }
};

} // namespace

ProjectRow::ProjectRow(const BrowserConfigProject &project, QWidget *parent)
    : QWidget(parent), m_id(project.id), m_editor(new PatternsEditor)
{
    auto *texts = new QVBoxLayout;
    texts->setSpacing(lineGap);
    auto *name = new ElidedLabel(Path::lastComponent(project.root), TextStyle::size13Semibold);
    auto *root = new ElidedLabel(project.root, TextStyle::size11, TextColor::secondary);
    setDescribes(name, m_editor);
    setDescribes(root, m_editor);
    texts->addWidget(name);
    texts->addWidget(root);

    auto *header = new QHBoxLayout;
    header->setSpacing(Tokens::rowSpacing);
    header->addWidget(new SidebarIcon(u"folder.fill"_s, SystemColor::blue), 0, Qt::AlignVCenter);
    header->addLayout(texts, 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Tokens::rowPadding, Tokens::rowPaddingVertical, Tokens::rowPadding,
                               Tokens::rowPaddingVertical);
    layout->setSpacing(editorGap);
    layout->addLayout(header);
    layout->addWidget(new EditorBackground(m_editor));

    m_editor->setText(project.urls);
    m_editor->setAccessibleName(accessibleText(u"URL patterns for "_s + project.root));
}

std::function<int(const BrowserConfigProject &)> ProjectRow::expectedHeight()
{
    const int texts = QFontMetrics(textFont(TextStyle::size13Semibold)).height() + lineGap +
                      QFontMetrics(textFont(TextStyle::size11)).height();
    const int rest = 2 * Tokens::rowPaddingVertical + std::max(Tokens::iconTile, texts) + editorGap +
                     2 * editorPaddingVertical;
    return [rest, editor = PatternsEditor::expectedHeight()](const BrowserConfigProject &project) {
        return rest + editor(project.urls.count(u'\n') + 1);
    };
}
