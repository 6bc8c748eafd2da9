// Sets or removes the X11 root window's _ICC_PROFILE, as a colour manager does for the
// first monitor. Usage: x11_root_profile set PROFILE.icc | x11_root_profile remove
#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

int main(int argc, char** argv) {
  const bool set = argc == 3 && std::strcmp(argv[1], "set") == 0;
  if (!set && !(argc == 2 && std::strcmp(argv[1], "remove") == 0)) return 2;
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  if (xcb_connection_has_error(connection)) return 3;
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  const char name[] = "_ICC_PROFILE";
  xcb_intern_atom_reply_t* atom =
      xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, sizeof name - 1, name), nullptr);
  if (!atom) return 3;
  if (set) {
    std::ifstream in(argv[2], std::ios::binary);
    const std::vector<char> profile((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (profile.empty()) return 4;
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, root, atom->atom, XCB_ATOM_CARDINAL, 8,
                        std::uint32_t(profile.size()), profile.data());
  } else {
    xcb_delete_property(connection, root, atom->atom);
  }
  std::free(atom);
  // A round trip: the server has carried out the change before the connection closes.
  xcb_get_input_focus_reply_t* synced = xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr);
  const bool ok = synced != nullptr;
  std::free(synced);
  xcb_disconnect(connection);
  return ok ? 0 : 3;
}
