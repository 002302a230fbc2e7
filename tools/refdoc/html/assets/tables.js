// Reads the parts of the search index. `tools/refdoc/index/SearchIndex.hpp` describes them, and
// `IndexTable.hpp` the form of its tables.

const LARGEST_PART = 8000; // in bytes, as in `IndexTable.hpp`
const LIMIT = 200_000; // what one search may load, in bytes

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
