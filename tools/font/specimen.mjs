// Draws docs/font.png: lines of text in the compiled font, read by an independent program. Prints SVG.
//
// usage: node specimen.mjs FONT.shx READER LINES.txt > specimen.svg
// READER is the folder of the reader's npm package; LINES.txt is UTF-8, written in the font's 8-bit form.

import fs from 'node:fs';
import path from 'node:path';
import { pathToFileURL } from 'node:url';

const [fontPath, reader, linesPath] = process.argv.slice(2);
const { ShxFont } = await import(pathToFileURL(path.join(reader, 'dist/index.es.js')));
const bytes = fs.readFileSync(fontPath);
const font = new ShxFont(bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.length));

// The letters' codes stand in the glyph data.
const codes = new Map();
for (const line of fs.readFileSync(new URL('glyphs.txt', import.meta.url), 'utf8').split('\n')) {
  const words = line.trim().split(/\s+/);
  if ((words[0] === 'glyph' || words[0] === 'join') && words[2] !== '-')
    codes.set(words[1] === 'space' ? ' ' : words[1], parseInt(words[2], 16));
}

const SIZE = 24;
const LEADING = 44;
const MARGIN = 20;
const strokes = [];
let widest = 0;
const lines = fs.readFileSync(linesPath, 'utf8').split('\n').filter((line) => line);
lines.forEach((line, row) => {
  let x = MARGIN;
  const y = MARGIN + 30 + row * LEADING;
  for (const letter of line) {
    const shape = font.getCharShape(codes.get(letter), SIZE);
    for (const polyline of shape.polylines)
      strokes.push(polyline.map((p) => `${(x + p.x).toFixed(2)},${(y - p.y).toFixed(2)}`).join(' '));
    x += shape.lastPoint.x;
  }
  widest = Math.max(widest, x);
});

const height = MARGIN * 2 + lines.length * LEADING;
console.log(`<svg xmlns="http://www.w3.org/2000/svg" width="${Math.ceil(widest + MARGIN)}" height="${height}">`);
console.log('<rect width="100%" height="100%" fill="white"/>');
console.log('<g fill="none" stroke="black" stroke-width="1.6" stroke-linecap="round" stroke-linejoin="round">');
for (const points of strokes) console.log(`<polyline points="${points}"/>`);
console.log('</g></svg>');
