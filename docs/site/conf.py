"""How Sphinx makes the site. script/docs runs it in a copy of the texts, beside what Doxygen has read from the headers."""
project = "libbt"
project_copyright = "its authors"
extensions = ["myst_parser", "breathe"]

root_doc = "index"
# How deep the headings are that a link can lead to.
myst_heading_anchors = 4
highlight_language = "none"

breathe_projects = {"libbt": "../xml/bluetooth/xml", "libbtasync": "../xml/btasync/xml"}
breathe_default_project = "libbt"
breathe_show_include = False

html_theme = "furo"
html_title = "libbt"
html_copy_source = False
html_show_copyright = False
html_show_sphinx = False
