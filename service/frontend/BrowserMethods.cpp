#include "service/frontend/Methods.h"

namespace btservice {

void BindBrowserMethods(ServiceBinder binder, MusicControl& music) {
  using M = MusicControl;
  binder.Bind(BT_METHOD(is_support_browser_info), music, &M::SupportsBrowsing);
  binder.Bind(BT_METHOD(is_root_directory), music, &M::IsRootFolder);
  binder.Bind(BT_METHOD(root_directory), [&music](gint start, gint count) {
    return music.ToRootFolder({start, count});
  });
  binder.Bind(BT_METHOD(folder_up), [&music](gint start, gint count) {
    return music.FolderUp({start, count});
  });
  binder.Bind(BT_METHOD(folder_down), [&music](const gchar* uid, gint start, gint count) {
    return music.FolderDown(uid, {start, count});
  });
  binder.Bind(BT_METHOD(browsing_search),
              [&music](const gchar* uid, const gchar* words, gint start, gint count) {
                return music.Search(uid, words, {start, count});
              });
  binder.Bind(BT_METHOD(browsing_now_playing_list), [&music](gint start, gint count) {
    return music.BrowseQueue({start, count});
  });
  binder.Bind(BT_METHOD(get_cur_media_item_list), music, &M::FetchItems);
  binder.Bind(BT_METHOD(get_browsing_folder_item_total), music, &M::CountFolder);
  binder.Bind(BT_METHOD(play_item), music, &M::PlayItem);
  binder.Bind(BT_METHOD(add_media_item_to_now_playing), music, &M::QueueItem);
}

}  // namespace btservice
