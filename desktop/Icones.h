#pragma once

#include <QIcon>
#include <string_view>

namespace tarvo {

// An icon of lines in the colour of the palette's text, sharp at every size. tracos: strokes on a
// grid of 24 x 24, "M x y" begins one, "L x y" draws on, "C x y r" is a circle.
QIcon IconeDeTracos(std::string_view tracos);

}  // namespace tarvo
