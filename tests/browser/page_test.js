// The page of "qvgraph draw" in a browser.
//
// scripts/browser-test runs it, with the paths of the command, of the browser and
// of a folder for the files that the tests write.
'use strict';

const {after, before, test} = require('node:test');
const assert = require('node:assert');
const {execFileSync} = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const {chromium} = require('playwright-core');

const {QVGRAPH, CHROMIUM, WORK} = process.env;
const DOOR_CAMERA = path.join(__dirname, '../../examples/door-camera.json');

// Names that would run, or would break the page, if they were not inserted as text.
const EVIL = [
  '<script>window.ran = 1; alert(1)</script>',
  '</script><script>window.ran = 1</script>',
  '"></text></g></svg><svg onload="window.ran = 1">',
  '<img src=x onerror="window.ran = 1">',
  'javascript:window.ran = 1',
  '\'; window.ran = 1; \'',
  '${window.ran = 1}',
  ']]><script>window.ran = 1</script>',
  '--><script>window.ran = 1</script><!--',
  '&lt;script&gt;window.ran = 1&lt;/script&gt;',
  '</style><style>* { display: none }',
  '</title></head>',
  '\\N\\G\\T\\L\\E',
  '\u0000\u001b[2J\u202e\u2028\ufffe',
];

function evilConfiguration() {
  const pipe = {default_mode_link: EVIL[0], thread_opts: {exec_thread_num: 1}};
  EVIL.forEach((evil, i) => {
    pipe[`node_${i}`] = {
      node_opts: {node_name: `${evil}#${evil}`, [evil]: evil},
      stream_opts: {
        stream_input: EVIL[(i + 1) % EVIL.length],
        stream_fmt_in: evil,
        stream_output: evil,
        stream_fmt_out: EVIL[(i + 2) % EVIL.length],
      },
    };
    pipe[`node_${evil}`] = {node_opts: {node_name: evil}};
    pipe[`executor_${i}`] = {executor_opts: {[evil]: evil}};
    pipe[`link_${evil}`] = {[evil]: evil};
    pipe[evil] = {[evil]: evil};
  });
  return {pipe_0: pipe, [EVIL[0]]: {}, [EVIL[2]]: 5};
}

let browser;

before(async () => {
  fs.writeFileSync(path.join(WORK, 'evil.json'), JSON.stringify(evilConfiguration(), null, 1));
  browser = await chromium.launch({
    executablePath: CHROMIUM,
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
           '--disable-background-networking', '--disable-component-update', '--disable-sync'],
  });
});

after(() => browser.close());

// Draws a configuration and opens the picture. Returns the page, and a list of its
// messages and requests.
async function open(file, options = {}) {
  const {format = 'html', ...context} = options;
  const picture = path.join(WORK, `${path.basename(file, '.json')}.${format}`);
  execFileSync(QVGRAPH, ['draw', '-q', '-o', picture, file]);
  const page = await browser.newPage({viewport: {width: 1400, height: 800}, ...context});
  const seen = [];
  page.on('console', (message) => seen.push(`${message.type()}: ${message.text()}`));
  page.on('pageerror', (error) => seen.push(`error: ${error.message}`));
  page.on('dialog', (dialog) => {
    seen.push(`dialog: ${dialog.message()}`);
    dialog.dismiss();
  });
  page.on('request', (request) => seen.push(`request: ${request.url()}`));
  const url = `file://${picture}`;
  await page.goto(url);
  assert.deepStrictEqual(seen.splice(0), [`request: ${url}`]);
  return {page, seen};
}

const evil = () => path.join(WORK, 'evil.json');

// ---- Navigation -------------------------------------------------------------

test('a page loads without a message', async () => {
  const {page, seen} = await open(DOOR_CAMERA);
  assert.strictEqual(await page.title(), 'door-camera.json - qvgraph');
  assert.strictEqual(await page.locator('header p').textContent(), '2 pipes, 20 nodes');
  assert.strictEqual(await page.locator('#ui-panel').isVisible(), false);
  assert.deepStrictEqual(seen, []);
});

test('a click on a node shows its options, streams and findings', async () => {
  const {page, seen} = await open(DOOR_CAMERA);
  await page.locator('g.node', {hasText: 'Tracker'}).click();
  const panel = page.locator('#ui-panel');
  assert.strictEqual(await panel.locator('h2').textContent(), 'Tracker');
  assert.deepStrictEqual(await panel.locator('h3').allTextContents(),
                         ['Inputs', 'Outputs', 'Options']);
  assert.deepStrictEqual(await panel.locator('.ui-ends li').allTextContents(),
                         ['persons boxes', 'faces boxes', 'tracks tracks']);
  const options = await panel.locator('section').last().locator('tr').allTextContents();
  assert.ok(options.includes('max_age_framesint3250'), options.join('\n'));
  assert.strictEqual(await page.locator('g.ui-selected').count(), 1);
  await panel.locator('#ui-close').click();
  assert.strictEqual(await panel.isVisible(), false);
  assert.strictEqual(await page.locator('g.ui-selected').count(), 0);
  assert.deepStrictEqual(seen, []);
});

test('a click on a stream shows its producers and consumers', async () => {
  const {page} = await open(DOOR_CAMERA);
  await page.locator('#p0s1 text').first().click();
  const panel = page.locator('#ui-panel');
  assert.strictEqual(await panel.locator('h2').textContent(), 'frames');
  assert.deepStrictEqual(await panel.locator('.ui-ends li').allTextContents(),
                         ['node_1 ImageTuner image:nv12', 'node_2 Scaler#detection image:nv12',
                          'node_3 Scaler#preview image:nv12',
                          'node_8 VideoEncoder#main image:nv12']);
  await panel.locator('button', {hasText: 'Scaler#detection'}).click();
  assert.strictEqual(await panel.locator('h2').textContent(), 'Scaler#detection');
});

test('a click on a pipe shows its executors and links', async () => {
  const {page} = await open(DOOR_CAMERA);
  await page.locator('#p1 > polygon, #p1 > path, #p1 a > path, #p1 a > polygon').first().click(
      {position: {x: 20, y: 60}});
  const panel = page.locator('#ui-panel');
  assert.strictEqual(await panel.locator('h2').textContent(), 'pipe_1');
  assert.deepStrictEqual(await panel.locator('h3').allTextContents(), ['executor_0', 'link_0']);
});

test('findings are shown with their node', async () => {
  const file = path.join(WORK, 'wrong.json');
  fs.writeFileSync(file, `{"pipe_0": {"node_0": {
    "node_opts": {"node_name": "View", "wide": true},
    "stream_opts": {"stream_input": "raw", "stream_fmt_in": "nv12"}}}}\n`);
  const {page} = await open(file);
  await page.locator('#p0n0').click();
  const finding = page.locator('#ui-panel .ui-findings li').first();
  assert.match(await finding.textContent(), /^warning 2:\d+ .*\[option-not-stored\]/);
});

test('search finds nodes and streams', async () => {
  const {page, seen} = await open(DOOR_CAMERA);
  await page.keyboard.press('/');
  await page.keyboard.type('echo');
  const results = page.locator('#ui-results li');
  assert.deepStrictEqual(await results.allTextContents(), ['EchoCanceller pipe_1/node_2']);
  await page.keyboard.press('Enter');
  assert.strictEqual(await page.locator('#ui-panel h2').textContent(), 'EchoCanceller');
  const box = await page.locator('g.ui-selected').boundingBox();
  const stage = await page.locator('#ui-stage').boundingBox();
  assert.ok(Math.abs(box.x + box.width / 2 - stage.x - stage.width / 2) < 2);
  await page.locator('#ui-search').fill('nv12');
  assert.ok((await results.allTextContents()).includes('frames pipe_0, stream, image:nv12'));
  await page.locator('#ui-search').fill('there is no such thing');
  assert.deepStrictEqual(await results.allTextContents(), ['no results']);
  assert.deepStrictEqual(seen, []);
});

test('the wheel zooms and the pointer moves the picture', async () => {
  const {page} = await open(DOOR_CAMERA);
  const viewBox = () => page.locator('#ui-stage svg').evaluate((svg) => {
    const {x, y, width, height} = svg.viewBox.baseVal;
    return {x, y, width, height};
  });
  const whole = await viewBox();
  await page.mouse.move(700, 400);
  await page.mouse.wheel(0, -400);
  await page.waitForFunction((width) =>
      document.querySelector('#ui-stage svg').viewBox.baseVal.width < width, whole.width);
  const zoomed = await viewBox();
  await page.mouse.down();
  await page.mouse.move(600, 350, {steps: 4});
  await page.mouse.up();
  const moved = await viewBox();
  assert.strictEqual(moved.width, zoomed.width);
  assert.ok(moved.x > zoomed.x && moved.y > zoomed.y);
  assert.strictEqual(await page.locator('#ui-panel').isVisible(), false);
  await page.locator('#ui-fit').click();
  assert.ok((await viewBox()).width >= whole.width);
});

test('the keyboard reaches every node', async () => {
  const {page} = await open(DOOR_CAMERA);
  assert.strictEqual(await page.locator('#ui-stage [tabindex="0"]').count(), 20);
  await page.locator('#p0n0').focus();
  await page.keyboard.press('Enter');
  assert.strictEqual(await page.locator('#ui-panel h2').textContent(), 'VideoCapture#door');
});

test('the theme is that of the system, or the selected one', async () => {
  const fill = (page) => page.locator('#p0n0 path').first().evaluate(
      (path) => getComputedStyle(path).fill);
  const light = 'rgb(232, 240, 248)';
  const dark = 'rgb(31, 48, 68)';
  const {page} = await open(DOOR_CAMERA, {colorScheme: 'dark'});
  assert.strictEqual(await fill(page), dark);
  await page.locator('#ui-theme').click();
  assert.strictEqual(await page.locator('#ui-theme').textContent(), 'Theme: light');
  assert.strictEqual(await fill(page), light);
  await page.emulateMedia({colorScheme: 'light'});
  await page.locator('#ui-theme').click();
  assert.strictEqual(await fill(page), dark);
  await page.locator('#ui-theme').click();
  assert.strictEqual(await fill(page), light);
});

test('an SVG also has a dark theme', async () => {
  const {page} = await open(DOOR_CAMERA, {format: 'svg', colorScheme: 'dark'});
  assert.strictEqual(await page.locator('#p0n0 path').first().evaluate(
      (path) => getComputedStyle(path).fill), 'rgb(31, 48, 68)');
});

// ---- Hostile configurations --------------------------------------------------

test('nothing of a configuration runs', async () => {
  const {page, seen} = await open(evil());
  for (const node of await page.locator('#ui-stage g[tabindex]').all()) {
    await node.focus();
    await page.keyboard.press('Enter');
  }
  await page.locator('#ui-search').fill('ran');
  assert.ok(await page.locator('#ui-results button').count() > 0);
  assert.strictEqual(await page.evaluate(() => window.ran), undefined);
  assert.strictEqual(await page.locator('script').count(), 2);
  assert.strictEqual(await page.locator('style').count(), 1);
  assert.strictEqual(await page.locator('img, iframe, object, embed, link').count(), 0);
  assert.strictEqual(await page.evaluate(() => [...document.querySelectorAll('*')].some(
      (element) => element.getAttributeNames().some((name) => name.startsWith('on')))), false);
  assert.strictEqual(await page.evaluate(() => [...document.querySelectorAll('a')].some(
      (a) => a.hasAttribute('href') || a.hasAttribute('xlink:href'))), false);
  assert.deepStrictEqual(seen, []);
});

test('names are shown literally', async () => {
  const {page} = await open(evil());
  await page.locator('#ui-search').fill('&lt;script');
  await page.keyboard.press('Enter');
  const shown = await page.locator('#ui-panel h2').textContent();
  assert.ok(shown.startsWith('&lt;script&gt;window.ran = 1&lt;/script&gt;'), shown);
});

test('nothing of a configuration runs in an SVG', async () => {
  const {page, seen} = await open(evil(), {format: 'svg'});
  assert.strictEqual(await page.evaluate(() => window.ran), undefined);
  assert.strictEqual(await page.locator('script').count(), 0);
  assert.deepStrictEqual(seen, []);
});

test('the policy of the page prevents any other script from running', async () => {
  const {page, seen} = await open(DOOR_CAMERA);
  await page.evaluate(() => {
    const script = document.createElement('script');
    script.textContent = 'window.ran = 1';
    document.body.append(script);
  });
  assert.strictEqual(await page.evaluate(() => window.ran), undefined);
  assert.strictEqual(seen.length, 1);
  assert.match(seen[0], /Content Security Policy/);
});
