#include "AccessibleTree.h"

#include <QMetaEnum>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace
{

void walkFrom(QAccessibleInterface *object, int depth,
              const std::function<void(QAccessibleInterface *, int)> &visit)
{
    if (!object || !object->isValid() || object->state().invisible)
        return;
    visit(object, depth);
    for (int i = 0; i < object->childCount(); ++i)
        walkFrom(object->child(i), depth + 1, visit);
}

QString label(QAccessibleInterface &object)
{
    for (const auto &[related, relation] : object.relations(QAccessible::Label))
        return related->text(QAccessible::Name);
    return {};
}

QString states(const QAccessible::State &state)
{
    QString text;
    const auto add = [&text](bool holds, QStringView name) {
        if (holds)
            text += u", "_s + name.toString();
    };
    add(state.focusable, u"focusable");
    add(state.checkable && state.checked, u"checked");
    add(state.selected, u"selected");
    add(state.disabled, u"disabled");
    add(state.readOnly && state.focusable, u"read-only");
    return text;
}

QString line(QAccessibleInterface &object, int depth)
{
    const char *role = QMetaEnum::fromType<QAccessible::Role>().valueToKey(object.role());
    QString text = QString(qsizetype(2) * depth, u' ') + QString::fromLatin1(role);
    const auto add = [&text](const QString &before, const QString &what) {
        if (!what.isEmpty())
            text += before.arg(QString(what).replace(u'\n', u"\\n"_s));
    };
    add(u" “%1”"_s, object.text(QAccessible::Name));
    add(u" labelled “%1”"_s, label(object));
    add(u" described “%1”"_s, object.text(QAccessible::Description));
    if (object.editableTextInterface())
        add(u" holding “%1”"_s, object.text(QAccessible::Value));
    return text + states(object.state()) + u'\n';
}

} // namespace

void walk(QAccessibleInterface *root, const std::function<void(QAccessibleInterface *, int)> &visit)
{
    walkFrom(root, 0, visit);
}

QString outline(QAccessibleInterface *root)
{
    QString text;
    walk(root, [&text](QAccessibleInterface *object, int depth) { text += line(*object, depth); });
    return text;
}
