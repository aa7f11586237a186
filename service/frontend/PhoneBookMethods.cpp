#include "service/frontend/Methods.h"

namespace btservice {

void BindPhoneBookMethods(ServiceBinder binder, PhoneBookControl& phoneBook, Publisher& publisher) {
  using P = PhoneBookControl;
  binder.Bind(BT_METHOD(start_phone_book_download), phoneBook, &P::StartDownload);
  binder.Bind(BT_METHOD(stop_phone_book_download), phoneBook, &P::StopDownload);

  binder.Bind(BT_METHOD(get_contact_list), publisher, &Publisher::PublishContacts);
  binder.Bind(BT_METHOD(get_fav_contact_list), publisher, &Publisher::PublishFavorites);
  binder.Bind(BT_METHOD(get_contact_by_index), [&publisher](gint index) { publisher.PublishContact(index); });
  binder.Bind(BT_METHOD(get_contact_count), [&phoneBook] { return phoneBook.Contacts().size(); });
  binder.Bind(BT_METHOD(delete_contact_by_id), phoneBook, &P::DeleteContact);
  binder.Bind(BT_METHOD(clear_contact), phoneBook, &P::ClearContacts);
  binder.Bind(BT_METHOD(set_contact_favorite), phoneBook, &P::SetFavorite);

  binder.Bind(BT_METHOD(get_call_log_list), publisher, &Publisher::PublishCallLogs);
  binder.Bind(BT_METHOD(get_call_log_by_id), [&publisher](gint id) { publisher.PublishCallLog(id); });
  binder.Bind(BT_METHOD(get_call_log_count), [&phoneBook](guchar type) {
    return phoneBook.CallLogs(static_cast<CallLogType>(type)).size();
  });
  binder.Bind(BT_METHOD(delete_call_log_by_id), phoneBook, &P::DeleteCallLog);
  binder.Bind(BT_METHOD(clear_call_log), phoneBook, &P::ClearCallLogs);
}

}  // namespace btservice
