'use strict';
{
    // ---- What the page holds

    const LIMIT = 500; // rows of a list before "show all"
    const PAUSE = 2000; // milliseconds that are worth a row of their own
    const INDENT = ' '.repeat(39); // of transmitted frames
    const NONE = '-';
    const LAYER_2 = '~', DAMAGE = '!'; // keys of frames, beside the numbers of calls and NONE
    const SIDES = { T: 'this side', R: 'far side' };
    const WORDS = {
        start: 'Start', at: 'Report line', by: 'Opened by', line: 'Line', call: 'Reference', from: 'From', to: 'To',
        channel: 'Channel', alert: 'Rings after', ring: 'Rings for', talk: 'Talk', result: 'Result',
        cleared: 'Cleared by', cause: 'Cause', location: 'Location', messages: 'Messages',
    };
    const ENDS = { ...SIDES, open: 'nobody in this trace', restart: 'RESTART', status: 'STATUS', suspend: 'SUSPEND' };
    const SECONDS = ['alert', 'ring', 'talk'];

    const element = id => document.getElementById(id);

    // The character that shows a byte of the trace: no control, no bidirectional one among them.
    function character(byte) {
        if (byte < 0x20) return String.fromCharCode(0x2400 + byte);
        if (byte === 0x7F) return '\u2421';
        return byte >= 0x80 && byte <= 0xA0 || byte === 0xAD ? '\uFFFD' : String.fromCharCode(byte);
    }

    // Text as page_writer escapes it: \xx is a byte, \> the indent.
    const unescaped = text => text.replace(/\\(>|..)/g, (_, code) =>
        code === '>' ? INDENT : character(parseInt(code, 16)));

    // A line of values between tabs, as an object. Unescaped text holds no tabs.
    function record(columns, line) {
        const values = unescaped(line).split('\t');
        return Object.fromEntries(columns.map((column, i) => [column, values[i] ?? NONE]));
    }

    // Frames: a line that begins with a tab holds a frame's values, the lines after it are those of the report.
    const frameText = element('frame-data').textContent;
    const frameColumns = frameText.slice(0, frameText.indexOf('\n')).split('\t');
    const frameStarts = []; // of each frame's values
    const framesOf = new Map(); // key (a call's number, NONE, LAYER_2 or DAMAGE) -> numbers of frames
    const frames = key => framesOf.get(key) ?? [];

    function findFrames() {
        for (let at = frameText.indexOf('\n\t'); at >= 0; at = frameText.indexOf('\n\t', at + 2)) {
            const key = frameText.slice(at + 2, frameText.indexOf('\t', at + 2));
            if (!framesOf.has(key)) framesOf.set(key, []);
            framesOf.get(key).push(frameStarts.length);
            frameStarts.push(at + 2);
        }
    }

    function frame(number) {
        const start = frameStarts[number];
        return { ...record(frameColumns, frameText.slice(start, frameText.indexOf('\n', start))), number };
    }

    function reportLines({ number }) {
        const begin = frameText.indexOf('\n', frameStarts[number]) + 1;
        return unescaped(frameText.slice(begin, (frameStarts[number + 1] ?? frameText.length + 1) - 2));
    }

    const [callHead, ...callLines] = element('call-data').textContent.trim().split('\n');
    const callColumns = callHead.split('\t');
    const calls = callLines.map(line => record(callColumns, line));
    const callOf = new Map(calls.map(call => [call.no, call]));
    findFrames();

    // ---- Writing

    // An element with properties, and with texts or elements in it.
    function make(tag, properties, ...content) {
        const { data, ...others } = properties;
        const made = Object.assign(document.createElement(tag), others);
        Object.assign(made.dataset, data);
        made.append(...content);
        return made;
    }

    // Puts the first rows into a list, and the others when the button is pressed.
    function fill(list, button, rows, makeRow) {
        list.replaceChildren(...rows.slice(0, LIMIT).map(makeRow));
        button.hidden = rows.length <= LIMIT;
        button.textContent = `Show all ${rows.length}`;
        button.onclick = () => {
            button.hidden = true;
            for (const row of rows.slice(LIMIT)) list.append(makeRow(row)); // too many to be one call's arguments
        };
    }

    // ---- The list of calls

    const table = element('calls'), filter = element('filter'), cause = element('cause');
    const collator = new Intl.Collator('en', { numeric: true });
    const order = { column: 'no', sign: 1 };
    const columns = callColumns.filter(column =>
        ['no', 'result', 'cause'].includes(column) || calls.some(call => call[column] !== NONE));
    let listed = calls;

    // What a call does not tell comes last, whichever way the list is sorted.
    function compare(a, b) {
        const [left, right] = [a[order.column], b[order.column]];
        if (left === NONE || right === NONE) return (left === NONE) - (right === NONE);
        return order.sign * collator.compare(left, right);
    }

    function chosen(call) {
        const [column, value] = cause.value.split('\t');
        const words = filter.value.toLowerCase();
        return (!value || call[column] === value) &&
            columns.some(name => call[name].toLowerCase().includes(words));
    }

    function callRow(call) {
        const link = make('a', { href: `#call-${call.no}`, ariaLabel: `call ${call.no}` }, call.no);
        const cells = columns.map(name => make('td', { role: 'cell', className: name, data: { column: name } },
            name === 'no' ? link : call[name]));
        return make('tr', { role: 'row', data: { call: call.no } }, ...cells);
    }

    function showList() {
        listed = calls.filter(chosen);
        if (order.column !== 'no' || order.sign < 0) listed.sort(compare);
        element('shown').textContent = `${listed.length} of ${calls.length} calls`;
        fill(table.tBodies[0], element('more-calls'), listed, callRow);
    }

    function sortBy(column, header) {
        order.sign = order.column === column ? -order.sign : 1;
        order.column = column;
        for (const other of header.parentNode.children) other.ariaSort = 'none';
        header.ariaSort = order.sign > 0 ? 'ascending' : 'descending';
        showList();
    }

    function makeHeader(column) {
        const button = make('button', { type: 'button', title: WORDS[column] ?? 'Number' }, column);
        const ariaSort = column === order.column ? 'ascending' : 'none';
        const header = make('th', { role: 'columnheader', scope: 'col', className: column, ariaSort }, button);
        button.onclick = () => sortBy(column, header);
        return header;
    }

    // The values of a column, each with the number of calls that have it.
    function choices(column, label) {
        const counts = new Map();
        for (const call of calls) counts.set(call[column], (counts.get(call[column]) ?? 0) + 1);
        const options = [...counts].filter(([value]) => value !== NONE).sort(([a], [b]) => collator.compare(a, b))
            .map(([value, count]) => make('option', { value: `${column}\t${value}` }, `${value} (${count})`));
        return make('optgroup', { label }, ...options);
    }

    function openNumber(event) {
        event.preventDefault();
        const no = element('number').value.trim();
        if (callOf.has(no)) location.hash = `#call-${no}`;
        else element('shown').textContent = `There is no call ${no}`;
    }

    function prepareList() {
        table.role = 'table';
        table.tHead.rows[0].replaceChildren(...columns.map(makeHeader));
        cause.append(make('option', { value: '' }, `all (${calls.length})`),
            choices('result', 'Result'), choices('cause', 'Cause'));
        filter.oninput = cause.onchange = showList;
        element('choose').onsubmit = openNumber;
        table.tBodies[0].onclick = ({ target }) => {
            const row = target.closest('tr');
            if (row && getSelection().isCollapsed) location.hash = `#call-${row.dataset.call}`;
        };
        showList();
    }

    // ---- Ladders: the frames of a call, frames of no call, damage

    const ladder = element('ladder'), layer2 = element('layer2');
    let view; // what the ladder shows: see views

    const isLayer2 = ({ key }) => key === LAYER_2;
    const linkOf = ({ line, tei }, call) => [line, tei, call].join();
    const inOrder = numbers => numbers.sort((a, b) => a - b).map(frame);
    const switched = () => layer2.checked ? frames(LAYER_2) : [];

    // The first frame of those that the decoder took for one: they begin at the same line of the report.
    function passOf(number) {
        const { at } = frame(number);
        return at !== NONE && number > 0 && frame(number - 1).at === at ? passOf(number - 1) : number;
    }

    // A call's messages, damage from directly before the first one, and layer 2 of its links. A call that is not cleared
    // goes on to the end of the trace.
    function framesOfCall({ no, cleared }) {
        const own = frames(no);
        const last = cleared === 'open' ? Infinity : own.at(-1);
        const damage = frames(DAMAGE).filter(number => number >= passOf(own[0]) - 1 && number < last);
        const between = switched().filter(number => number > own[0] && number < last);
        const messages = own.map(frame);
        const links = new Set(messages.flatMap(message => [linkOf(message, message.call), linkOf(message, NONE)]));
        return inOrder([...own, ...damage, ...between])
            .filter(other => !isLayer2(other) || links.has(linkOf(other, other.call)));
    }

    // Rows: a run of layer 2 frames with the same name, any other frame, or a pause; between damaged places is none.
    function rowsOf(all) {
        const rows = [];
        for (const next of all) {
            const run = rows.at(-1)?.run;
            if (run && isLayer2(next) && isLayer2(run[0]) && next.message === run[0].message) {
                run.push(next);
                continue;
            }
            const pause = run && !view.isDamage ? next.ms - run.at(-1).ms : 0;
            if (pause > PAUSE) rows.push({ pause });
            rows.push({ run: [next] });
        }
        return rows;
    }

    const seconds = milliseconds => (milliseconds / 1000).toFixed(3);

    // The time of day, with the date where that is not the first one; without times the report line.
    function timeOf({ time, at }) {
        if (time === NONE) return `report line ${at}`;
        return time.startsWith(view.date) ? time.slice(11) : time;
    }

    // What a message says; line and TEI where the view has several.
    function said(frame) {
        const labels = { from: 'from', to: 'to', channel: 'channel', cause: 'cause', location: 'by' };
        if (view.severalLines) labels.line = 'line';
        if (view.severalTeis) labels.tei = 'TEI';
        const told = Object.keys(labels).filter(name => frame[name] !== NONE);
        return told.map(name => `${labels[name]} ${frame[name]}`).join(', ');
    }

    // The lines of a frame as they stand in the report; moved left when all are indented, as of a transmitted frame.
    function linesOf(frame) {
        const text = reportLines(frame);
        const moved = text.split('\n').every(line => line === '' || line.startsWith(INDENT));
        const place = frame.at === NONE ? 'not in the report' : `less +${frame.at}`;
        return [make('p', {}, place), make('pre', { className: moved ? 'moved' : '' }, text)];
    }

    function unfold(details, run) {
        if (!details.open || details.children.length > 1) return;
        details.append(...run.slice(0, LIMIT).flatMap(linesOf));
        const more = run.length - LIMIT;
        if (more > 0) details.append(make('p', {}, `and ${more} more, from report line ${run[LIMIT].at} on`));
    }

    function pauseRow(pause) {
        const words = make('span', { className: 'lane' }, `pause of ${seconds(pause)} s`);
        return make('li', { className: 'row pause' }, words);
    }

    // What a closed row shows, and how it reads aloud; `way` is T, R or TR.
    function summaryOf(run, way) {
        const [first] = run;
        const lane = run.length > 1 ? `${run.length} \u00D7 ${first.message}` : first.message;
        const elapsed = first.ms - view.start;
        const parts = { time: timeOf(first), offset: isNaN(elapsed) ? '' : seconds(elapsed), lane, said: said(first) };
        const spans = Object.keys(parts).map(name => make('span', { className: name }, make('span', {}, parts[name])));
        const event = first.key === DAMAGE ? lane : `${SIDES[way] ?? 'each side'} sends ${lane}`;
        const ariaLabel = [parts.time, event, parts.said].filter(text => text).join(', ');
        return make('summary', { className: 'row', ariaLabel }, ...spans);
    }

    function frameRow(run) {
        const [{ key, at, message, way, number }] = run;
        const bothWays = run.some(other => other.way !== way);
        const kind = { [LAYER_2]: 'layer2', [DAMAGE]: 'damage' }[key] ?? 'message';
        const details = make('details', {}, summaryOf(run, bothWays ? 'TR' : way));
        details.ontoggle = () => unfold(details, run);
        const data = key === DAMAGE ? {} : { way: bothWays ? 'TR' : way };
        return make('li', { data: { frame: number, at, ...data, [kind]: message } }, details);
    }

    const makeRow = ({ pause, run }) => pause ? pauseRow(pause) : frameRow(run);

    // ---- Views, and the address that names them

    const page = document.title;
    const views = {
        '#other': { heading: 'Frames of no call', find: () => inOrder([...frames(NONE), ...switched()]) },
        '#damage': { heading: 'Damage', isDamage: true, find: () => inOrder([...frames(DAMAGE)]) },
    };

    const viewOf = call => ({ heading: `Call ${call.no}`, call, find: () => framesOfCall(call) });

    function showLadder() {
        const all = view.find();
        const several = name => new Set(all.map(frame => frame[name]).filter(value => value !== NONE)).size > 1;
        const start = view.call ? all.find(({ key }) => key === view.call.no).ms : NaN;
        const date = all.find(({ time }) => time !== NONE)?.time.slice(0, 11);
        Object.assign(view, { start, date, severalLines: several('line'), severalTeis: several('tei') });
        fill(ladder, element('more-rows'), rowsOf(all), makeRow);
        element('nothing').hidden = all.length > 0;
    }

    // What was unfolded stays so.
    function switchLayer2() {
        const unfolded = Array.from(ladder.querySelectorAll('[open]'), details => details.parentNode.dataset.frame);
        showLadder();
        for (const number of unfolded) {
            const details = ladder.querySelector(`[data-frame="${number}"] > details`);
            if (details) details.open = true;
        }
    }

    function fact(column, value) {
        if (SECONDS.includes(column)) return `${value} s`;
        return ['by', 'cleared'].includes(column) ? ENDS[value] ?? value : value;
    }

    function showFacts(call = {}) {
        const told = Object.keys(WORDS).filter(column => (call[column] ?? NONE) !== NONE);
        element('facts').replaceChildren(...told.map(column =>
            make('div', {}, make('dt', {}, WORDS[column]), make('dd', {}, fact(column, call[column])))));
    }

    function linkTo(anchor, call) {
        anchor.hidden = !call;
        if (call) anchor.href = `#call-${call.no}`;
    }

    function showAround(call) {
        const list = listed.includes(call) ? listed : calls;
        linkTo(element('previous'), list[list.indexOf(call) - 1]);
        linkTo(element('next'), call && list[list.indexOf(call) + 1]);
    }

    function openView(next) {
        view = next;
        showLadder();
        showFacts(view.call);
        showAround(view.call);
        for (const id of ['switch', 'sides']) element(id).hidden = Boolean(view.isDamage);
        element('heading').textContent = view.heading;
        scrollTo(0, 0);
        element('heading').focus();
    }

    // Back in the list, the call that was open has the focus.
    const focusCall = call => table.querySelector(`[data-call="${call.no}"] a`)?.focus();

    function route() {
        const call = callOf.get(/^#call-(\d+)$/.exec(location.hash)?.[1]);
        const next = call ? viewOf(call) : views[location.hash];
        const before = view?.call;
        element('list').hidden = Boolean(next);
        element('view').hidden = !next;
        document.title = next ? `${next.heading} \u2013 ${page}` : page;
        for (const link of element('views').children) link.ariaCurrent = link.hash === (location.hash || '#calls');
        if (next) openView(next);
        else if (before) focusCall(before);
    }

    prepareList();
    layer2.onchange = switchLayer2;
    addEventListener('hashchange', route);
    for (const id of ['views', 'choose']) element(id).hidden = false;
    route();
    document.documentElement.dataset.ready = '';
}
