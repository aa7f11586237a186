#include "bench/peers/BookMessage.h"

#include <utility>

OwnedVariant PackAsMessage(const PhoneBook& book) {
  GVariantBuilder contacts;
  g_variant_builder_init(&contacts, G_VARIANT_TYPE("a(issa(ias))"));
  for (const MWPTypeContact& contact : book) {
    GVariantBuilder groups;
    g_variant_builder_init(&groups, G_VARIANT_TYPE("a(ias)"));
    for (const MWPTypeContactNumber& group : contact.listNumbers) {
      GVariantBuilder values;
      g_variant_builder_init(&values, G_VARIANT_TYPE_STRING_ARRAY);
      for (const std::string& value : group.vecValues) {
        g_variant_builder_add(&values, "s", value.c_str());
      }
      g_variant_builder_add(&groups, "(ias)", group.nType, &values);
    }
    g_variant_builder_add(&contacts, "(issa(ias))", contact.nContactId, contact.strText1.c_str(),
                          contact.strText2.c_str(), &groups);
  }
  return OwnedVariant(g_variant_new("(a(issa(ias)))", &contacts));
}

PhoneBook UnpackMessage(GVariant* message) {
  PhoneBook book;
  OwnedVariantIter contacts;
  g_variant_get(message, "(a(issa(ias)))", contacts.Out());
  gint id = 0;
  const gchar* text1 = nullptr;
  const gchar* text2 = nullptr;
  GVariantIter* groups = nullptr;
  while (g_variant_iter_loop(contacts.get(), "(i&s&sa(ias))", &id, &text1, &text2, &groups)) {
    MWPTypeContact& contact = book.emplace_back();
    contact.nContactId = id;
    contact.strText1 = text1;
    contact.strText2 = text2;
    gint type = 0;
    GVariantIter* values = nullptr;
    while (g_variant_iter_loop(groups, "(ias)", &type, &values)) {
      MWPTypeContactNumber& group = contact.listNumbers.emplace_back();
      group.nType = type;
      group.vecValues.reserve(g_variant_iter_n_children(values));
      const gchar* value = nullptr;
      while (g_variant_iter_loop(values, "&s", &value)) {
        group.vecValues.emplace_back(value);
      }
    }
  }
  return book;
}
