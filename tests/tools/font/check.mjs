// Reads the compiled label font with an independent program and checks that it is complete and even.
//
// usage: node check.mjs FONT.shx. The reader is installed by `npm ci` in this folder; without it nothing is checked.

import fs from 'node:fs';

const { ShxFont } = await import('@mlightcad/shx-parser/dist/index.es.js').catch((error) => {
  if (error.code !== 'ERR_MODULE_NOT_FOUND') throw error;
  console.log('skipped: the reader is not installed (npm ci --prefix tests/tools/font)');
  process.exit(0);
});

const UNITS = 76; // above and below the base line: at this size a shape comes in its own units
const CAPITALS = 60;
const TAILS = -16;
const HIGHEST = 78; // a breve on a capital
const OVERHANG = 8; // past the advance width: less than a letter's space

const ROUNDING = 0.5; // an arc's bulge is a whole number

const faults = [];
const expect = (holds, fault) => holds || faults.push(fault);
const span = (first, last) => Array.from({ length: last - first + 1 }, (_, i) => first + i);
const hex = (code) => code.toString(16);

// The 8-bit codes of the Vietnamese letters, in runs without a gap.
const letters = [[0xa1, 0xae], [0xb5, 0xb9], [0xbb, 0xbe], [0xc6, 0xcc], [0xce, 0xd8], [0xdc, 0xdf],
  [0xe1, 0xef], [0xf1, 0xfe]].flatMap(([first, last]) => span(first, last)).filter((code) => code !== 0xdb);
const expected = new Set([...span(32, 126), ...letters]);

const bytes = fs.readFileSync(process.argv[2]);
const font = new ShxFont(bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.length));
const { header, content } = font.fontData;
expect(header.fontType === 'shapes' && header.fileVersion === '1.0', 'not a shape font');
expect(content.info === 'Vnsimple' && content.baseUp === CAPITALS && content.baseDown === -TAILS, 'wrong font shape');
expect(content.orientation === 'horizontal', 'not horizontal');

const drawn = new Map();
const shapes = new Map();
for (const code of expected) {
  const shape = font.getCharShape(code, UNITS);
  expect(shape, `${hex(code)}: missing`);
  if (!shape) continue;
  shapes.set(code, shape);
  expect(shape.lastPoint.x > 0 && Math.abs(shape.lastPoint.y) < 1e-9, `${hex(code)}: does not advance along the line`);
  expect((shape.polylines.length === 0) === (code === 32), `${hex(code)}: blank and letter mixed up`);
  if (code === 32) continue;
  expect(shape.bbox.minX > 0 && shape.bbox.maxX < shape.lastPoint.x + OVERHANG, `${hex(code)}: stands in its neighbour`);
  expect(shape.bbox.minY >= TAILS - ROUNDING && shape.bbox.maxY <= HIGHEST, `${hex(code)}: too low or too high`);
  const picture = JSON.stringify(shape.polylines);
  expect(!drawn.has(picture), `${hex(code)}: looks like ${hex(drawn.get(picture) ?? 0)}`);
  drawn.set(picture, code);
}

for (const code of span(33, 255))
  expect(expected.has(code) || code === 127 || !font.getCharShape(code, UNITS), `${hex(code)}: not a letter of ours`);
for (const code of span(0x41, 0x5a)) {
  const box = shapes.get(code)?.bbox;
  expect(box && Math.abs(box.maxY - CAPITALS) < ROUNDING, `${hex(code)}: not of capital height`);
}
const widths = new Set(span(0x30, 0x39).map((code) => shapes.get(code)?.lastPoint.x));
expect(widths.size === 1, 'figures of several widths');

console.log(faults.join('\n') || `${shapes.size} shapes are in order`);
process.exit(faults.length ? 1 : 0);
