"use strict";

// Hides the items of a product page that lack a word of the filter.
function filterItems(sections, text) {
  const words = text.toLowerCase().split(/\s+/);
  for (const section of sections) {
    let isAnyShown = false;
    for (const item of section.querySelectorAll("li")) {
      const content = item.textContent.toLowerCase();
      item.hidden = !words.every((word) => content.includes(word));
      isAnyShown ||= !item.hidden;
    }
    section.hidden = !isAnyShown;
  }
}

const filter = document.querySelector(".filter");
if (filter) {
  const input = filter.querySelector("input");
  const sections = document.querySelectorAll(".items");
  input.addEventListener("input", () => filterItems(sections, input.value));
  filter.hidden = false;
}
