#ifndef SCREENS_DESK_H
#define SCREENS_DESK_H

#include <glib.h>

#include <cstdio>
#include <functional>
#include <string>

/// What a toolkit has and a terminal lacks: buttons, and a loop.
class Desk {
 public:
  using OnButton = std::function<void(const std::string& button)>;

  /// Runs GLib's main loop for good. Each line that is typed is a button of the screen.
  static void Run(OnButton onButton) {
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    g_io_add_watch(g_io_channel_unix_new(0), G_IO_IN, OnInput, &onButton);
    g_main_loop_run(g_main_loop_new(nullptr, FALSE));
  }

 private:
  static gboolean OnInput(GIOChannel* input, GIOCondition, gpointer onButton) {
    gchar* line = nullptr;
    if (g_io_channel_read_line(input, &line, nullptr, nullptr, nullptr) != G_IO_STATUS_NORMAL) {
      return G_SOURCE_REMOVE;
    }
    const std::string button = g_strchomp(line);
    g_free(line);
    (*static_cast<OnButton*>(onButton))(button);
    return G_SOURCE_CONTINUE;
  }
};

/// A part of a screen, as a text: printed when it is another than before.
class Picture {
 public:
  void Draw(const std::string& text) {
    if (text != m_text) {
      m_text = text;
      if (!text.empty()) {
        std::puts(text.c_str());
      }
    }
  }

 private:
  std::string m_text;
};

#endif
