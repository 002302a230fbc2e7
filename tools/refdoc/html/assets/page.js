// The filter of product pages, and the links to other languages.

// Hides the items of a product page that lack a word of the filter.
function filterItems(sections, text) {
  const words = foldCase(text).split(/\s+/u);
  for (const section of sections) {
    let isAnyShown = false;
    for (const item of section.querySelectorAll("li")) {
      const content = foldCase(item.textContent);
      item.hidden = !words.every((word) => content.includes(word));
      isAnyShown ||= !item.hidden;
    }
    section.hidden = !isAnyShown;
  }
}

function setUpFilter(filter) {
  const input = filter.querySelector("input");
  const sections = document.querySelectorAll(".items");
  input.addEventListener("input", () => filterItems(sections, input.value));
  filter.hidden = false;
}

// The links to other languages lead to the same place on the page.
function keepPlace() {
  for (const link of document.querySelectorAll(".languages a")) link.hash = location.hash;
}

addEventListener("hashchange", keepPlace);
keepPlace();
for (const filter of document.querySelectorAll(".filter")) setUpFilter(filter);
