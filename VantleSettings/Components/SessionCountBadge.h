#pragma once

#include <QWidget>

#include <cstdint>

/// How many notch sessions belong to a project: a capsule with the count, or a dash for none.
class SessionCountBadge : public QWidget
{
    Q_OBJECT

public:
    explicit SessionCountBadge(std::int64_t count, QWidget *parent = nullptr);

    void setCount(std::int64_t count);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::int64_t m_count = 0;
};
