"use strict";

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

// The index is loaded in parts when the search is used. They are scripts, because pages that are
// opened as files may load nothing else.
class SearchIndex {
  entries = [];
  state = "loading"; // or "complete" or "incomplete"
  #folder;
  #isStarted = false;

  constructor(folder) {
    this.#folder = folder;
  }

  // Calls onChange whenever entries or state have changed. Only the first call does anything.
  async load(onChange) {
    if (this.#isStarted) return;
    this.#isStarted = true;
    try {
      await this.#loadParts(onChange);
      this.state = "complete";
    } catch {
      this.state = "incomplete";
    }
    onChange();
  }

  async #loadParts(onChange) {
    const count = await this.#loadData("parts.js");
    for (let part = 1; part <= count; ++part) {
      for (const row of await this.#loadData(`${part}.js`)) {
        this.entries.push(readEntry(row, this.entries.length));
      }
      onChange();
    }
  }

  // Runs a script that passes its data to refdocIndex().
  #loadData(name) {
    return new Promise((resolve, reject) => {
      globalThis.refdocIndex = resolve;
      const script = element("script", { src: this.#folder + name });
      script.addEventListener("error", reject);
      document.head.append(script);
    });
  }
}

const MOST_RESULTS = 20;

function element(name, properties, ...children) {
  const result = Object.assign(document.createElement(name), properties);
  result.append(...children);
  return result;
}

// Does what the tool does in pages: ends each directional isolate in the string that begins it.
function withClosedIsolates(text) {
  let depth = 0;
  const closed = text.replace(/[\u2066-\u2069]/gu, (character) => {
    if (character !== "\u2069") ++depth;
    else if (depth === 0) return "";
    else --depth;
    return character;
  });
  return closed + "\u2069".repeat(depth);
}

function isolated(text) {
  return element("bdi", {}, withClosedIsolates(text));
}

function resultItem({ entry }, pages) {
  const name = isolated(entry.name);
  const title = entry.page === "" ? name : element("a", { href: pages + entry.page }, name);
  const marks = [entry.type, isolated(entry.product)];
  if (entry.flags & NOT_INSTALLED) marks.push("not installed");
  if (entry.flags & DEPRECATED) marks.push("deprecated");
  const details = element("small", {});
  for (const mark of marks) details.append(details.hasChildNodes() ? ", " : "", mark);
  return element("li", {}, title, " ", isolated(entry.purpose), " ", details);
}

function statusText(count, state) {
  const results = count === 1 ? "1 result" : `${count} results`;
  if (state === "loading") return `${results} so far`;
  return state === "complete" ? results : `${results}; the index could not be loaded completely`;
}

function setUpSearch(box) {
  const input = box.querySelector("input");
  const status = box.querySelector("[role=status]");
  const list = box.querySelector("ol");
  const index = new SearchIndex(box.dataset.index);
  let timer;

  function show() {
    const results = search(input.value, index.entries);
    list.replaceChildren(...results.slice(0, MOST_RESULTS).map((result) => resultItem(result, box.dataset.pages)));
    status.textContent = input.value.trim() === "" ? "" : statusText(results.length, index.state);
  }

  function moveFocus(step) {
    const targets = [input, ...list.querySelectorAll("a")];
    const next = targets.indexOf(document.activeElement) + step;
    targets[Math.max(0, Math.min(next, targets.length - 1))].focus();
  }

  box.addEventListener("keydown", (event) => {
    if (event.key === "ArrowDown" || event.key === "ArrowUp") {
      event.preventDefault();
      moveFocus(event.key === "ArrowDown" ? 1 : -1);
    } else if (event.key === "Enter" && event.target === input) {
      show();
      list.querySelector("a")?.click();
    } else if (event.key === "Escape") {
      input.value = "";
      show();
      input.focus();
    }
  });
  document.addEventListener("keydown", (event) => {
    if (event.key !== "/" || event.target.matches("input") || event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    input.focus();
  });
  input.addEventListener("input", () => {
    index.load(show);
    clearTimeout(timer);
    timer = setTimeout(show, 50);
  });
  box.hidden = false;
  if ("focus" in box.dataset) input.focus();
}

// The links to other languages lead to the same place on the page.
function keepPlace() {
  for (const link of document.querySelectorAll(".languages a")) link.hash = location.hash;
}

addEventListener("hashchange", keepPlace);
keepPlace();
for (const filter of document.querySelectorAll(".filter")) setUpFilter(filter);
for (const box of document.querySelectorAll(".search")) setUpSearch(box);
