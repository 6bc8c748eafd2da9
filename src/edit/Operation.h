#pragma once
// The interface through which a parameter dialog's preview and its command apply an
// operation (edit::Catalogue fills it): the image and the dialog's values in, the result out.
// The preview calls exactly the function the command applies to the full image.

#include "edit/DialogModel.h"
#include "imaging/Image.h"

#include <functional>

namespace edit {

using Operation = std::function<imaging::Image(const imaging::Image& image, const DialogValues& values)>;

}  // namespace edit
