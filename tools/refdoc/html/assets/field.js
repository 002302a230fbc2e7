// The search field of a page: it loads parts of the index, searches while the user types, and shows the
// results.

// Returns a function that loads a part of the index once and returns its promise. The parts are
// scripts, because pages that are opened as files may load nothing else. Each of them calls
// refdocIndex().
function indexLoader(folder) {
  const parts = new Map();
  const resolvers = new Map();
  globalThis.refdocIndex = (name, size, data) => resolvers.get(name)({ size, data });
  return (name) => {
    if (!parts.has(name)) {
      const part = new Promise((resolve, reject) => {
        resolvers.set(name, resolve);
        const script = element("script", { src: `${folder}${name}.js` });
        script.addEventListener("error", reject);
        document.head.append(script);
      });
      parts.set(name, part);
    }
    return parts.get(name);
  };
}

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
  if (state === PARTIAL) return "There may be better results; type more to find them";
  if (count === MOST_RESULTS) return `The best ${count} results`;
  const results = count === 1 ? "1 result" : `${count} results`;
  return state === COMPLETE ? results : `${results}; type more exactly to find others`;
}

function setUpSearch(box) {
  const input = box.querySelector("input");
  const status = box.querySelector("[role=status]");
  const list = box.querySelector("ol");
  const load = indexLoader(box.dataset.index);
  let timer;

  function show(results, text) {
    list.replaceChildren(...results.map((result) => resultItem(result, box.dataset.pages)));
    status.textContent = text;
  }

  // Shows the results unless the input changes in the meantime.
  async function update() {
    clearTimeout(timer);
    const query = input.value;
    const search = new Search(query, load);
    let text;
    try {
      const state = await search.run();
      text = query.trim() === "" ? "" : statusText(search.results.length, state);
    } catch {
      text = "The search index could not be loaded";
    }
    if (query === input.value) show(search.results, text);
  }

  function moveFocus(step) {
    const targets = [input, ...list.querySelectorAll("a")];
    const next = targets.indexOf(document.activeElement) + step;
    targets[Math.max(0, Math.min(next, targets.length - 1))].focus();
  }

  box.addEventListener("keydown", async (event) => {
    if (event.key === "ArrowDown" || event.key === "ArrowUp") {
      event.preventDefault();
      moveFocus(event.key === "ArrowDown" ? 1 : -1);
    } else if (event.key === "Enter" && event.target === input) {
      await update();
      list.querySelector("a")?.click();
    } else if (event.key === "Escape") {
      input.value = "";
      update();
      input.focus();
    }
  });
  document.addEventListener("keydown", (event) => {
    if (event.key !== "/" || event.target.matches("input") || event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    input.focus();
  });
  input.addEventListener("input", () => {
    clearTimeout(timer);
    timer = setTimeout(update, 50);
  });
  box.hidden = false;
  if ("focus" in box.dataset) input.focus();
}

for (const box of document.querySelectorAll(".search")) setUpSearch(box);
