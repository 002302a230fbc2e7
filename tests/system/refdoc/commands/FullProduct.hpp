#pragma once

namespace refdoc_tests {

/// A full resource file with every key of the format, for layouts and JSON alike.
inline constexpr const char* kFullProduct = R"json({
  "schema": "referenceapi", "schemaVersion": "2.1",
  "productName": "Orchard", "baseCode": "OR", "helpFolder": "orchard", "helpLocation": "help/or",
  "refItems": [{
    "href": "graft.html", "refpurpose": "Join two trees",
    "refentity": [{"type": "class", "name": "graft"},
                  {"type": "method", "name": "graft", "fcntype": "constructor"},
                  {"type": "function", "name": "join"}],
    "packagename": "orchard.trees", "introduced": "1.2",
    "description": "Joins the scion to the rootstock and waits until both have grown together, which takes about a year.\nBoth stay alive.",
    "appthumbnail": {"fileref": "graft.png", "alt": "Two trees"},
    "deprecationstatus": "discouraged",
    "syntaxgroup": [{"title": "Join", "syntax": ["t = graft(a, b)", "t = graft(a, b, way: w)"]},
                    {"title": "", "syntaxtype": "command", "syntax": ["graft a b"]}],
    "inputs": [{"name": "a", "purpose": "Rootstock", "htmlid": "in-a"},
               {"name": "b", "purpose": "Scion", "syntaxtype": "command", "htmlid": "in-b"},
               {"namevaluepairs": [{"name": "way", "purpose": "How to cut, which depends on how thick both are", "value": ["whip", "cleft"],
                                    "defaultvalue": "whip", "htmlid": "in-way"}]}],
    "inputgroup": [{"title": "More", "inputs": [{"name": "wax", "purpose": "Seal", "htmlid": "in-wax"}]}],
    "outputs": [{"name": "t", "purpose": "Tree", "value": ["alive", "dead"], "htmlid": "out-t"}],
    "classpropertygroup": [{"title": "Look", "classproperty": [{"name": "Height", "purpose": "In m", "defaultvalue": "1"}]},
                           {"classproperty": [{"name": "Age", "purpose": "In years"}]}],
    "seealso": [{"url": "prune.html", "name": "prune"}, {"url": "sow.html", "name": "sowing"}],
    "examples": [{"url": "ex/first.html", "open_command": "orchard demo first", "title": "A first tree"}],
    "parameters": [{"name": "sun", "purpose": "Hours a day", "defaultvalue": "6", "htmlid": "par-sun"}]
  }]
})json";

} // namespace refdoc_tests
