#pragma once
// The user's texts of code outside Qt's objects: `Texts::tr("Folder not found")` in a
// floor's namespace reads the translation under that floor's name. The English text in
// the code is the source; translations/ holds the others.

#include <QCoreApplication>

namespace base { struct Texts { Q_DECLARE_TR_FUNCTIONS(base) }; }
namespace browse { struct Texts { Q_DECLARE_TR_FUNCTIONS(browse) }; }
namespace document { struct Texts { Q_DECLARE_TR_FUNCTIONS(document) }; }
namespace edit { struct Texts { Q_DECLARE_TR_FUNCTIONS(edit) }; }
namespace files { struct Texts { Q_DECLARE_TR_FUNCTIONS(files) }; }
namespace imaging { struct Texts { Q_DECLARE_TR_FUNCTIONS(imaging) }; }
namespace print { struct Texts { Q_DECLARE_TR_FUNCTIONS(print) }; }
namespace shell { struct Texts { Q_DECLARE_TR_FUNCTIONS(shell) }; }
namespace slideshow { struct Texts { Q_DECLARE_TR_FUNCTIONS(slideshow) }; }
namespace view { struct Texts { Q_DECLARE_TR_FUNCTIONS(view) }; }
namespace widgets { struct Texts { Q_DECLARE_TR_FUNCTIONS(widgets) }; }
