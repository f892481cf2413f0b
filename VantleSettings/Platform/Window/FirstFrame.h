#pragma once

#include <functional>

class QWidget;

/// Does `work` once the widget was drawn for the first time, which then need not wait for it.
void afterFirstFrame(QWidget &widget, std::function<void()> work);
