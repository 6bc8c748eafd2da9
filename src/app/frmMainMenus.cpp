// The menus' commands beyond File > Open Folder/Rename/Exit, Edit > Select None and View:
// each goes in its menu in this order under the spec's name. A command built elsewhere is
// placed as it is; one made here is disabled until its Part connects it (the catalogue's
// commands right after, in ConnectCatalogueCommands).
#include "app/frmMain.h"

#include <QMenu>
#include <QMenuBar>

namespace app {

namespace {

struct MenuCommand {
  const char* Menu;  // the objectName of the menu it goes in
  const char* Name;
  const char* Caption;
  const char* Shortcut;
};

constexpr MenuCommand kMenuCommands[] = {
    {"mnuFile", "mnuFileOpenFile", "&Open File...", "Ctrl+O"},
    {"mnuFile", "mnuFileClose", "&Close", "Ctrl+W"},
    {"mnuFile", "mnuFileSave", "&Save", "Ctrl+S"},
    {"mnuFile", "mnuFileSaveAs", "Save &As...", "Ctrl+Shift+S"},
    {"mnuFile", "mnuFileCopyTo", "&Copy To...", ""},
    {"mnuFile", "mnuFileMoveTo", "&Move To...", ""},
    {"mnuFile", "mnuFileDelete", "&Delete", "Del"},
    {"mnuFile", "mnuFileProperties", "Prop&erties...", "Alt+Return"},
    {"mnuEdit", "mnuEditUndo", "&Undo", "Ctrl+Z"},
    {"mnuEdit", "mnuEditRedo", "&Redo", "Ctrl+Y"},
    {"mnuEdit", "mnuEditCopy", "&Copy", "Ctrl+C"},
    {"mnuView", "mnuViewFullScreen", "F&ull Screen", "F11"},
    {"mnuColors", "mnuColorsBrightness", "&Brightness...", ""},
    {"mnuColors", "mnuColorsContrast", "&Contrast...", ""},
    {"mnuColors", "mnuColorsGamma", "&Gamma...", ""},
    {"mnuColors", "mnuColorsHSL", "&Hue / Saturation / Luminance...", ""},
    {"mnuColors", "mnuColorsRGB", "&Red / Green / Blue...", ""},
    {"mnuColors", "mnuColorsSolarize", "&Solarize...", ""},
    {"mnuColors", "mnuColorsEqualize", "&Equalize", ""},
    {"mnuColors", "mnuColorsNegative", "&Negative", ""},
    {"mnuColors", "mnuColorsGrayScale", "Gr&ay Scale", ""},
    {"mnuColors", "@mnuColorsColorDepth", "Color &Depth", ""},
    {"mnuColorsColorDepth", "mnuColorsColorDepth1Bit", "&1 Bit (2 Colors)", ""},
    {"mnuColorsColorDepth", "mnuColorsColorDepth4Bits", "&4 Bits (16 Colors)", ""},
    {"mnuColorsColorDepth", "mnuColorsColorDepth8Bits", "&8 Bits (256 Colors)", ""},
    {"mnuColorsColorDepth", "mnuColorsColorDepth24Bits", "&24 Bits (True Color)", ""},
    {"mnuColors", "mnuColorsConcaveParabolic", "Conca&ve Parabolic", ""},
    {"mnuColors", "mnuColorsConvexParabolic", "Conve&x Parabolic", ""},
    {"mnuColors", "mnuColorsRedEye", "Red E&ye Removal", ""},
    {"mnuImage", "mnuImageFlip", "F&lip", ""},
    {"mnuImage", "mnuImageMirror", "&Mirror", ""},
    {"mnuImage", "mnuImageRotate", "&Rotate...", ""},
    {"mnuImage", "mnuImageResize", "Re&size...", ""},
    {"mnuImage", "mnuImageCrop", "&Crop", ""},
    {"mnuImage", "mnuImagePerspective", "Perspecti&ve...", ""},
    {"mnuImage", "mnuImagePinch", "P&inch...", ""},
    {"mnuImage", "mnuImageRipple", "Ri&pple...", ""},
    {"mnuImage", "mnuImageSwirl", "S&wirl...", ""},
    {"mnuImageFilters", "mnuImageFiltersBlend", "&Blend...", ""},
    {"mnuImageFilters", "mnuImageFiltersBlur", "B&lur", ""},
    {"mnuImageFilters", "mnuImageFiltersDiffuse", "&Diffuse", ""},
    {"mnuImageFilters", "mnuImageFiltersDilate", "D&ilate", ""},
    {"mnuImageFilters", "mnuImageFiltersErode", "&Erode", ""},
    {"mnuImageFilters", "mnuImageFiltersMedian", "Medi&an", ""},
    {"mnuImageFilters", "mnuImageFiltersMosaic", "&Mosaic...", ""},
    {"mnuImageFilters", "mnuImageFiltersMotionBlur", "Mo&tion Blur...", ""},
    {"mnuImageFilters", "mnuImageFiltersNoise", "&Noise...", ""},
    {"mnuImageFilters", "mnuImageFiltersSharpen", "&Sharpen...", ""},
    {"mnuImageFilters", "mnuImageFiltersSoften", "S&often...", ""},
    {"mnuTools", "mnuToolsSlideShow", "&Slide Show...", ""},
    {"mnuTools", "mnuToolsSetWallpaper", "Se&t Wallpaper", ""},
    {"mnuTools", "mnuToolsRemoveWallpaper", "&Remove Wallpaper", ""},
    {"mnuTools", "mnuToolsTiposArchivo", "&Associate File Types with Vistrel...", ""},
    {"mnuTools", "mnuToolsBorrarListaReciente", "&Clear List of Recent Folders", ""},
    {"mnuTools", "mnuToolsOptions", "&Options...", ""},
    {"mnuHelp", "mnuHelpContents", "&Contents", "F1"},
    {"mnuHelp", "mnuHelpAbout", "&About Vistrel", ""},
};

}  // namespace

void frmMain::BuildMenuBarMenus() {
  QMenu* colors = menuBar()->addMenu(QStringLiteral("&Colors"));
  colors->setObjectName(QStringLiteral("mnuColors"));
  QMenu* image = menuBar()->addMenu(QStringLiteral("&Image"));
  image->setObjectName(QStringLiteral("mnuImage"));
  QMenu* filters = image->addMenu(QStringLiteral("&Filters"));
  filters->setObjectName(QStringLiteral("mnuImageFilters"));
  image->addSeparator();
  QMenu* tools = menuBar()->addMenu(QStringLiteral("&Tools"));
  tools->setObjectName(QStringLiteral("mnuTools"));
  QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
  help->setObjectName(QStringLiteral("mnuHelp"));
  for (const MenuCommand& c : kMenuCommands) {
    if (c.Name[0] == '@') {  // a submenu, named after the '@'
      if (QMenu* menu = findChild<QMenu*>(QLatin1String(c.Menu))) {
        menu->addMenu(QLatin1String(c.Caption))->setObjectName(QLatin1String(c.Name + 1));
      }
      continue;
    }
    QAction* action = commands_.Get(QLatin1String(c.Name));
    if (!action) {
      action = commands_.Add(QLatin1String(c.Name), QLatin1String(c.Caption), QKeySequence(QLatin1String(c.Shortcut)));
      commands_.NotBuiltYet(QLatin1String(c.Name));
    }
    if (QMenu* menu = findChild<QMenu*>(QLatin1String(c.Menu))) menu->addAction(action);
  }
}

}  // namespace app
