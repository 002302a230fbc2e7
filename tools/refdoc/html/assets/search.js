"use strict";

// Ranks entries as `refdoc search` does. Strings are compared by code units, after foldCase().

// How a field matches a text, the best way first.
const EXACT = 0;
const PREFIX = 1;
const WORD = 2;
const SUBSTRING = 3;
const NEAR = 4;
const NONE = 5;

const NOT_INSTALLED = 1;
const DEPRECATED = 2;

function foldCharacter(character) {
  // Case folding keeps the dotless i, and turns small Cherokee letters into capitals.
  if (character === "ı") return character;
  if (/\p{Script=Cherokee}/u.test(character)) return character.toUpperCase();
  return character.toLowerCase().toUpperCase().toLowerCase();
}

// Returns a string without differences of letter case, by the full case folding of Unicode.
function foldCase(string) {
  if (/^[\x00-\x7F]*$/.test(string)) return string.toLowerCase();
  return Array.from(string, foldCharacter).join("");
}

function isWordCharacter(character) {
  return character !== undefined && /^[\p{L}\p{M}\p{N}]/u.test(character);
}

function characterBefore(string, position) {
  return Array.from(string.slice(Math.max(0, position - 2), position)).at(-1);
}

function hasWord(string, text) {
  for (let at = string.indexOf(text); at >= 0; at = string.indexOf(text, at + 1)) {
    const isWord =
      !isWordCharacter(characterBefore(string, at)) &&
      !isWordCharacter(string.slice(at + text.length, at + text.length + 2));
    if (isWord) return true;
  }
  return false;
}

// Returns how many code units must be added, removed, replaced or swapped with their neighbour to
// turn one string into the other; more than the limit if it takes more than that.
function editDistance(left, right, limit) {
  if (Math.abs(left.length - right.length) > limit) return limit + 1;
  let twoAbove = [];
  let above = [];
  let row = Array.from({ length: right.length + 1 }, (_, index) => index);
  for (let i = 1; i <= left.length; ++i) {
    [twoAbove, above, row] = [above, row, [i]];
    for (let j = 1; j <= right.length; ++j) {
      const replaced = above[j - 1] + (left[i - 1] === right[j - 1] ? 0 : 1);
      row[j] = Math.min(replaced, row[j - 1] + 1, above[j] + 1);
      if (i > 1 && j > 1 && left[i - 1] === right[j - 2] && left[i - 2] === right[j - 1]) {
        row[j] = Math.min(row[j], twoAbove[j - 2] + 1);
      }
    }
    if (Math.min(...row) > limit) return limit + 1;
  }
  return row[right.length];
}

function isNear(text, name) {
  const limit = Math.min(Math.floor(text.length / 3), 2);
  return limit > 0 && editDistance(text, name, limit) <= limit;
}

function matchOf(text, field) {
  const at = field.indexOf(text);
  if (at === 0) return field.length === text.length ? EXACT : PREFIX;
  if (at < 0) return NONE;
  return hasWord(field, text) ? WORD : SUBSTRING;
}

// Returns match * 3 + field for the field that matches best. Only names have near matches.
function bestMatch(text, entry) {
  let best = NONE * 3;
  for (const [field, string] of entry.folded.entries()) {
    let match = matchOf(text, string);
    if (match === NONE && field === 0 && isNear(text, string)) match = NEAR;
    if (match !== NONE) best = Math.min(best, match * 3 + field);
  }
  return best;
}

// Returns the texts of a query, or none if it is empty.
function textsOf(query) {
  return foldCase(query).split(/\s+/u).filter((text) => text !== "");
}

// Returns the rank of an entry, as numbers to compare one after the other; null if it does not
// match all texts.
function rankOf(texts, entry) {
  const worst = Math.max(...texts.map((text) => bestMatch(text, entry)));
  if (worst >= NONE * 3) return null;
  const field = worst % 3;
  return [(worst - field) / 3, entry.flags & NOT_INSTALLED, entry.flags & DEPRECATED, field];
}

function compareStrings(left, right) {
  return left < right ? -1 : left > right ? 1 : 0;
}

function compareNumbers(left, right) {
  for (const [index, number] of left.entries()) {
    if (number !== right[index]) return number - right[index];
  }
  return 0;
}

// The index. `tools/refdoc/pages/SearchIndex.hpp` describes its parts; these numbers are also in
// `SearchIndex.cpp` and `IndexTable.hpp`.
const LARGEST_PART = 8000;
const LARGEST_NAME_PART = 2000;
const MOST_ROWS_IN_PART = 32;
const LONGEST_KEY = 24;
const LONGEST_NAME = 100;
const FEW_PARTS = 4;
const MOST_RESULTS = 20;

// What one search may load, in bytes: for candidates, then for near names, and altogether.
const LIST_LIMIT = 120_000;
const NAME_LIMIT = 160_000;
const LIMIT = 200_000;

// How complete the results of a search are.
const COMPLETE = "complete";
const WITHOUT_SOME_NEAR = "without some near"; // may lack some names with two typing errors
const PARTIAL = "partial"; // there may be better ones

// A search needs more of the index than it may load.
class LimitError extends Error {}

// Returns the result of a step of a search; false if it needs more than the search may load.
async function withinLimit(step) {
  try {
    return await step();
  } catch (error) {
    if (error instanceof LimitError) return false;
    throw error;
  }
}

// The parts that one search uses. `load` returns the promise of a part: {size, data}.
class Loader {
  bytes = 0;
  #load;
  #parts = new Map();
  #reserved = 0;

  constructor(load) {
    this.#load = load;
  }

  hasRoomFor(bytes, limit) {
    return this.bytes + this.#reserved + bytes <= limit;
  }

  // Returns how many parts may be loaded at once.
  get room() {
    return Math.floor((LIMIT - this.bytes - this.#reserved) / LARGEST_PART);
  }

  part(name, largestSize = LARGEST_PART) {
    if (!this.#parts.has(name)) this.#parts.set(name, this.#newPart(name, largestSize));
    return this.#parts.get(name);
  }

  async #newPart(name, largestSize) {
    if (!this.hasRoomFor(largestSize, LIMIT)) throw new LimitError();
    this.#reserved += largestSize;
    const { size, data } = await this.#load(name);
    this.#reserved -= largestSize;
    this.bytes += size;
    return data;
  }
}

function numbersIn(digits) {
  const numbers = [];
  let number = 0;
  for (let at = 0; at < digits.length; ++at) {
    const code = digits.charCodeAt(at);
    const digit = code - (code > 92 ? 36 : 35);
    number = number * 45 + (digit % 45);
    if (digit < 45) {
      numbers.push(number);
      number = 0;
    }
  }
  return numbers;
}

// Returns the positions of the separators between which all keys from `start` to `end` lie.
function rangeOf(start, end, separators) {
  const first = separators.findLastIndex((separator) => separator < start);
  return { first: Math.max(0, first), last: separators.findLastIndex((separator) => separator <= end) };
}

// A sorted table of keys with numbers.
class Table {
  #name;
  #separators;
  #loader;
  #largestPart;

  constructor(name, separators, loader, largestPart = LARGEST_PART) {
    this.#name = name;
    this.#separators = separators;
    this.#loader = loader;
    this.#largestPart = largestPart;
  }

  hasRoomFor(parts, limit) {
    return this.#loader.hasRoomFor(parts.length * this.#largestPart, limit);
  }

  // Returns the numbers of the parts that may have a key; null if they are so many that even their
  // directories are too much to load.
  partsWith(key) {
    return this.#partsBetween(key, key);
  }

  // The same for all keys with a prefix.
  partsFor(prefix) {
    return this.#partsBetween(prefix, prefix + "\uffff");
  }

  async #partsBetween(start, end) {
    const { first, last } = rangeOf(start, end, this.#separators);
    if (last - first > 1) return null;
    const parts = [];
    for (let directory = first; directory <= last; ++directory) {
      const [firstPart, ...separators] = await this.#loader.part(`${this.#name}-d${directory}`);
      const range = rangeOf(start, end, separators);
      for (let at = range.first; at <= range.last; ++at) parts.push(firstPart + at);
    }
    return parts;
  }

  // Returns the rows whose keys have a prefix: {key, numbers}.
  async rows(parts, prefix) {
    const rows = [];
    const load = (part) => this.#loader.part(this.#name + part, this.#largestPart);
    for (const items of await Promise.all(parts.map(load))) {
      let key = "";
      for (const item of items) {
        const end = item.indexOf(" ");
        const [sharedCount] = numbersIn(item[0]);
        key = key.slice(0, sharedCount) + item.slice(end + 1);
        if (key.startsWith(prefix)) rows.push({ key, numbers: numbersIn(item.slice(1, end)) });
      }
    }
    return rows;
  }
}

// Returns what to look up for a text: its first word, and the phrase that follows it.
function lookupsFor(text) {
  const [word] = text.match(/^(?:[\p{L}\p{M}\p{N}]+|[^\p{L}\p{M}\p{N}]+)/u);
  const isAll = word === text;
  const first = { table: "list", text: word, isOfLetters: isWordCharacter(word), isFirst: true, isLast: isAll };
  const lookups = isAll ? [first] : [first, { table: "phrase", text: text.slice(word.length), isFirst: false, isLast: true }];
  return lookups.map((lookup) => ({ ...lookup, prefix: lookup.text.slice(0, LONGEST_KEY - 1) }));
}

// How a word stands in a field.
const ABSENT = 0;
const AT_START = 2;
const WHOLE = 3;

// Returns the best way in which the text of a lookup can match a field that has a key.
function boundInField({ isOfLetters, isFirst, isLast }, isWholeWord, isWholeEnd, occurrence) {
  if (occurrence === ABSENT) return NONE;
  if (!isFirst) return EXACT; // only the first word tells
  if (isWholeWord && occurrence >= AT_START) {
    return isLast && !(isWholeEnd && occurrence === WHOLE) ? PREFIX : EXACT;
  }
  if (!isOfLetters) return isWholeWord ? SUBSTRING : WORD;
  return isWholeWord && (isWholeEnd || !isLast) ? WORD : SUBSTRING;
}

// Returns boundInField() of the three fields; null if the text is not in any of them.
function boundsIn(lookup, key, isWholeWord, code) {
  // The end of long keys is not in the index.
  const isWholeEnd = key === lookup.text || lookup.prefix !== lookup.text;
  if (!lookup.isLast && !isWholeEnd) return null;
  return [0, 2, 4].map((shift) => boundInField(lookup, isWholeWord, isWholeEnd, (code >> shift) & 3));
}

// Returns the records that may match a lookup: a map from their numbers to boundsIn().
async function recordsWith(lookup, table) {
  const records = new Map();
  for (const { key, numbers } of await table.rows(lookup.parts, lookup.prefix)) {
    const isWholeWord = numbers[0] === 1;
    let record = 0;
    for (let at = 1; at < numbers.length; at += 2) {
      record += numbers[at];
      const bounds = boundsIn(lookup, key, isWholeWord, numbers[at + 1]);
      if (bounds === null) continue;
      const others = records.get(record) ?? [NONE, NONE, NONE];
      records.set(
        record,
        bounds.map((bound, field) => Math.min(bound, others[field])),
      );
    }
  }
  return records;
}

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
