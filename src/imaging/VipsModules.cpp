// libvips reads and writes HEIF, AVIF and JPEG XL through modules that bring large libraries
// with them. libvips loads every module it has at start-up, about 35 ms, more than the rest
// of its start together; the program starts it without them and loads the two it uses the
// first time a file or a saver needs one.
#include "imaging/ImageInternal.h"
#include "imaging/Sniff.h"

#include <dlfcn.h>
#include <unistd.h>

#include <mutex>
#include <string>

namespace imaging {

namespace {

const char* const kModules[] = {"vips-heif.so", "vips-jxl.so"};

// Where this libvips keeps its modules, or nothing when they are not beside it (a build
// with the coders inside, another layout): then libvips finds them itself.
std::string ModuleFolder() {
  Dl_info library{};
  if (dladdr(reinterpret_cast<void*>(&vips_init), &library) == 0 || !library.dli_fname) return {};
  const std::string path = library.dli_fname;
  const std::string folder = path.substr(0, path.rfind('/')) + "/vips-modules-" + std::to_string(vips_version(0)) + "." +
                             std::to_string(vips_version(1));
  return ::access((folder + "/" + kModules[0]).c_str(), R_OK) == 0 ? folder : std::string();
}

const std::string& Modules() {
  static const std::string folder = ModuleFolder();
  return folder;
}

}  // namespace

int StartVips() {
  if (Modules().empty()) return VIPS_INIT("vistrel");
  // libvips looks for its modules under $VIPSHOME/lib.
  const bool set = qEnvironmentVariableIsSet("VIPSHOME");
  const QByteArray home = qgetenv("VIPSHOME");
  qputenv("VIPSHOME", "/nonexistent");
  const int started = VIPS_INIT("vistrel");
  if (set) {
    qputenv("VIPSHOME", home);
  } else {
    qunsetenv("VIPSHOME");
  }
  return started;
}

void TrustCoders() {
  vips_block_untrusted_set(TRUE);
  // Today's types whose libraries libvips does not vouch for, but which users' folders
  // hold: SVG (librsvg), JPEG XL (libjxl) and JPEG 2000 (OpenJPEG), read in process as
  // browsers and desktops read them. Everything else untrusted stays blocked.
  for (const char* coder : {"VipsForeignLoadSvg", "VipsForeignLoadJxl", "VipsForeignSaveJxl", "VipsForeignLoadJp2k"}) {
    vips_operation_block_set(coder, FALSE);
  }
}

void LoadFormatModules() {
  static std::once_flag once;
  std::call_once(once, [] {
    if (Modules().empty()) return;
    // Kept for the rest of the run, as libvips keeps the modules it loads itself.
    for (const char* module : kModules) (void)g_module_open((Modules() + "/" + module).c_str(), G_MODULE_BIND_LAZY);
    TrustCoders();
  });
}

void LoadFormatModulesFor(int descriptor) {
  char head[16] = {};
  const ssize_t read = ::pread(descriptor, head, sizeof head, 0);
  if (read <= 0) return;
  const QString format = ChooseDecoder(QByteArray(head, int(read)), {}).Format;
  if (format == QLatin1String("HEIF") || format == QLatin1String("JXL")) LoadFormatModules();
}

}  // namespace imaging
