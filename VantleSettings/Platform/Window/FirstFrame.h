#pragma once

#include <functional>

class QWidget;

/// Runs `work` after the widget was painted for the first time, so that the first frame doesn't wait for it.
void afterFirstFrame(QWidget &widget, std::function<void()> work);
