// What the tests in Node share: the findings that check prints of an example, and waiting.
"use strict";
const fs = require("fs");

// Those of the file itself, as "LINE: error: TEXT", sorted by line, from the file that says what check prints.
function expectedFindings(file) {
  const printed = fs.readFileSync(file.replace(".opt", ".expected"), "utf8").split("\n");
  return printed.filter((line) => line.startsWith(`${file}:`) && !/^[^ ]+ note:/.test(line))
    .map((line) => line.slice(file.length + 1).replace(/ \[[a-z-]+\]$/, ""));
}

async function until(what, holds, seconds = 10) {
  for (const end = Date.now() + seconds * 1000; !holds();) {
    if (Date.now() > end) throw new Error(`in vain waited for: ${what}`);
    await new Promise((done) => setTimeout(done, 20));
  }
}

module.exports = {expectedFindings, until};
