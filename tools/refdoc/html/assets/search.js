// Searches the index for a query. Candidates come from its tables; their records are then loaded and
// ranked, the most promising first, until no other candidate can be better.

// As in `tools/refdoc/index/`.
const LARGEST_NAME_PART = 2000;
const MOST_ROWS_IN_PART = 32;
const LONGEST_NAME = 100;
const FEW_PARTS = 4;
const MOST_RESULTS = 20;

// What a search may have loaded, in bytes, after it has looked for candidates and for near names.
const LIST_LIMIT = 150_000;
const NAME_LIMIT = 160_000;

// How complete the results of a search are.
const COMPLETE = "complete";
const WITHOUT_SOME_NEAR = "without some near"; // may lack some names with two typing errors
const PARTIAL = "partial"; // there may be better ones

// Searches an index. `load` returns the promise of a part by its name: {size, data}.
class Search {
  results = [];
  #loader;
  #start;
  #texts;
  #ranked = new Set();

  constructor(query, load) {
    this.#texts = textsOf(query);
    this.#loader = new Loader(load);
  }

  // The size of the parts of the index that the search has used.
  get bytes() {
    return this.#loader.bytes;
  }

  // Sets `results` to the best results, the best first: {rank, entry}. Returns COMPLETE or what the
  // search leaves out in order to load no more than the limit.
  async run() {
    if (this.#texts.length === 0) return COMPLETE;
    this.#start = await this.#loader.part("start");
    if (!(await withinLimit(() => this.#findMatches()))) return PARTIAL;
    return (await withinLimit(() => this.#findNear())) ? COMPLETE : WITHOUT_SOME_NEAR;
  }

  #table(name, largestPart) {
    return new Table(name, this.#start[name], this.#loader, largestPart);
  }

  // Returns false if the search is too general.
  async #findMatches() {
    const lookups = this.#texts.flatMap((text, index) => lookupsFor(text).map((lookup) => ({ ...lookup, index })));
    for (const lookup of lookups) {
      const table = this.#table(lookup.table);
      const isWhole = !lookup.isLast && lookup.prefix === lookup.text;
      lookup.parts = await (isWhole ? table.partsWith(lookup.text) : table.partsFor(lookup.prefix));
    }
    const [first] = lookups;
    if (lookups.length === 1 && first.prefix === first.text && !(first.parts?.length <= FEW_PARTS)) {
      const best = await this.#bestRecords(first.text);
      if (best) {
        await this.#rank(best.map((record) => this.#candidate(record, EXACT)));
        return true;
      }
    }
    const candidates = await this.#candidates(lookups);
    if (candidates !== null) await this.#rank(candidates);
    return candidates !== null;
  }

  // Returns the best records for a text that is a word; undefined if the index has no such list.
  async #bestRecords(text) {
    const table = this.#table("best");
    const parts = await table.partsFor(text);
    return (await table.rows(parts.slice(0, 2), text)).find(({ key }) => key === text)?.numbers;
  }

  // Returns the records that may match all texts other than nearly; null if no lookup has few enough.
  async #candidates(lookups) {
    let records = null;
    const possible = lookups.filter(({ parts }) => parts);
    for (const lookup of possible.sort((left, right) => left.parts.length - right.parts.length)) {
      const table = this.#table(lookup.table);
      if (!table.hasRoomFor(lookup.parts, LIST_LIMIT)) break;
      records = this.#intersection(records, await recordsWith(lookup, table), lookup.index);
    }
    if (records === null) return null;
    const candidates = [];
    for (const [record, texts] of records) {
      const bound = Math.max(...texts.map((fields) => Math.min(...fields.map((match, field) => match * 3 + field))));
      if (bound < NONE * 3) candidates.push(this.#candidate(record, bound));
    }
    return candidates;
  }

  // Returns the records that are in both maps; the bounds of `found` are those of one text.
  #intersection(records, found, index) {
    const both = new Map();
    for (const [record, bounds] of found) {
      const texts = records === null ? this.#texts.map(() => [EXACT, EXACT, EXACT]) : records.get(record);
      if (!texts) continue;
      texts[index] = texts[index].map((bound, field) => Math.max(bound, bounds[field]));
      both.set(record, texts);
    }
    return both;
  }

  // A record whose results are not better than its order: rank and number.
  #candidate(record, bound) {
    const kind = this.#start.classes.filter((first) => record >= first).length;
    return { record, order: [Math.floor(bound / 3), kind & 2 ? 1 : 0, kind & 1 ? 2 : 0, bound % 3, record] };
  }

  // Returns false if there are too many names to find all that are near.
  async #findNear() {
    if (!this.#canImprove(this.#candidate(0, NEAR * 3))) return true;
    const records = new Set();
    let isComplete = true;
    for (const text of this.#texts) isComplete = (await this.#addNear(text, records)) && isComplete;
    await this.#rank([...records].map((record) => this.#candidate(record, NEAR * 3)));
    return isComplete;
  }

  // Adds the records whose name is near a text. If there are too many names, only those are compared
  // that have the same start or the same end. One error leaves either as it is, two may not.
  async #addNear(text, records) {
    const limit = Math.min(Math.floor(text.length / 3), 2);
    if (limit === 0 || text.length > LONGEST_NAME) return true;
    if (limit > 1 && (await this.#addNearIn("name", text, "", limit, records))) return true;
    const size = Math.min(2, Math.floor((text.length - 1) / 2));
    const reversed = Array.from(text).reverse().join("");
    const isStartComplete = await this.#addNearIn("name", text, text.slice(0, size), limit, records);
    const isEndComplete = await this.#addNearIn("eman", reversed, reversed.slice(0, size), limit, records);
    return limit === 1 && isStartComplete && isEndComplete;
  }

  // The same for the names in a table that begin with `start`. Does nothing and returns false if they
  // are too many.
  async #addNearIn(tableName, text, start, limit, records) {
    const table = this.#table(tableName, LARGEST_NAME_PART);
    const parts = new Set();
    for (let length = Math.max(1, text.length - limit); length <= text.length + limit; ++length) {
      const partsOfLength = await table.partsFor(String.fromCharCode(length) + start);
      if (partsOfLength === null) return false;
      for (const part of partsOfLength) parts.add(part);
    }
    if (!table.hasRoomFor([...parts], NAME_LIMIT)) return false;
    for (const { key, numbers } of await table.rows([...parts], "")) {
      if (isNear(text, key.slice(1))) numbers.forEach((number) => records.add(number));
    }
    return true;
  }

  // Adds candidates to the results, the most promising first, until there are enough results and the
  // others cannot be better.
  async #rank(candidates) {
    const waiting = candidates.filter(({ record }) => !this.#ranked.has(record));
    waiting.sort((left, right) => compareNumbers(left.order, right.order));
    while (waiting.length > 0 && this.#canImprove(waiting[0])) {
      const count = Math.max(1, Math.min(MOST_RESULTS - this.results.length, this.#loader.room));
      const entries = await Promise.all(waiting.splice(0, count).map(({ record }) => this.#entry(record)));
      for (const entry of entries) this.#addResult(entry);
    }
  }

  #canImprove(candidate) {
    if (this.results.length < MOST_RESULTS) return true;
    return compareNumbers(candidate.order, this.results.at(-1).order) < 0;
  }

  async #entry(record) {
    const rows = await this.#loader.part(`row${Math.floor(record / MOST_ROWS_IN_PART)}`);
    return readEntry(rows[record % MOST_ROWS_IN_PART], record, this.#candidate(record, EXACT).order);
  }

  #addResult(entry) {
    this.#ranked.add(entry.record);
    const rank = rankOf(this.#texts, entry);
    if (rank === null) return;
    this.results.push({ rank, entry, order: [...rank, entry.record] });
    this.results.sort((left, right) => compareNumbers(left.order, right.order));
    this.results.splice(MOST_RESULTS);
  }
}

// Returns an entry from its row in the index.
function readEntry([name, href, purpose, type, product, page], record, [, notInstalled, deprecated]) {
  const flags = notInstalled | deprecated;
  return { name, purpose, type, product, page, flags, record, folded: [name, href, purpose].map(foldCase) };
}
