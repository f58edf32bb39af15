#include "devtools/inspector_page.h"

namespace cefedition {

// All texts of the inspected page are put in as text, never as markup.
const char kInspectorPage[] = R"page(<!DOCTYPE html><html><head><meta charset="utf-8">
<title>DevTools</title><style>
  body { margin: 0; height: 100vh; display: flex; flex-direction: column; font: 13px sans-serif; }
  header { padding: 4px 8px; background: #eee; border-bottom: 1px solid #bbb; }
  #elements, #console { overflow: auto; font: 12px monospace; }
  #elements { flex: 2; padding: 4px 0; } #console { flex: 1; border-top: 1px solid #bbb; }
  .node { white-space: pre-wrap; cursor: default; } .node:hover { background: #f3f3f3; }
  .chosen, .chosen:hover { background: #cfe3ff; } .tag { color: #881280; } .name { color: #994500; }
  .value { color: #1a1aa6; } .other { color: #236e25; } .fold { display: inline-block; width: 1em; }
  .line { padding: 1px 8px; border-bottom: 1px solid #eee; white-space: pre-wrap; }
  .error { background: #fff0f0; color: #b00; } .warning { background: #fffbe5; }
  input { border: 0; border-top: 1px solid #bbb; padding: 6px 8px; font: 12px monospace; }
</style></head><body><header id="page"></header><div id="elements"></div><div id="console"></div>
<input id="entry" placeholder="Expression to evaluate in the page">
<script>
const byId = id => document.getElementById(id);
let last = 0;
const answers = new Map();
const listeners = {};
const call = (method, params = {}) => new Promise(resolve => {
  answers.set(++last, resolve);
  cefeditionInspector(JSON.stringify({id: last, method, params}));
});
const receive = message => {
  if (message.id) {
    const resolve = answers.get(message.id);
    answers.delete(message.id);
    if (resolve) resolve(message.result);
  } else if (listeners[message.method]) {
    listeners[message.method](message.params || {});
  }
};
const make = (kind, name, text) => {
  const made = document.createElement(kind);
  if (name) made.className = name;
  if (text !== undefined) made.textContent = text;
  return made;
};

// Elements. Every known node has a row and, below it, a box for its children.
const nodes = new Map();
let chosen = null;
const choose = id => {
  const entry = nodes.get(id);
  if (!entry) return;
  if (chosen) chosen.row.classList.remove('chosen');
  chosen = entry;
  entry.row.classList.add('chosen');
  for (let above = entry.above; above; above = above.above) open(above, true);
  entry.row.scrollIntoView({block: 'nearest'});
};
const open = (entry, wide) => {
  entry.wide = wide;
  entry.box.hidden = !wide;
  entry.fold.textContent = entry.node.childNodeCount ? (wide ? '\u25be' : '\u25b8') : '';
  if (wide && !entry.asked && !entry.node.children && entry.node.childNodeCount) {
    entry.asked = true;
    call('DOM.requestChildNodes', {nodeId: entry.node.nodeId});
  }
};
const fill = entry => {
  const {node, row} = entry;
  row.replaceChildren(entry.fold);
  if (node.nodeType === 1) {
    row.append(make('span', 'tag', '<' + node.localName));
    const list = node.attributes || [];
    for (let at = 0; at < list.length; at += 2) {
      row.append(' ', make('span', 'name', list[at]), '="', make('span', 'value', list[at + 1]),
                 '"');
    }
    row.append(make('span', 'tag', '>'));
  } else if (node.nodeType === 3) {
    row.append('"' + node.nodeValue.trim() + '"');
  } else {
    row.append(make('span', 'other', node.nodeType === 8 ? '<!--' + node.nodeValue + '-->' :
                    node.nodeType === 10 ? '<!DOCTYPE ' + node.nodeName + '>' : node.nodeName));
  }
};
const isBlank = node => node.nodeType === 3 && !node.nodeValue.trim();
const add = (node, above, depth) => {
  const entry = {node, above, depth, row: make('div', 'node'), box: make('div'),
                 fold: make('span', 'fold')};
  nodes.set(node.nodeId, entry);
  entry.row.style.paddingLeft = depth + 'em';
  entry.row.hidden = isBlank(node);
  entry.row.onclick = () => choose(node.nodeId);
  entry.fold.onclick = () => open(entry, !entry.wide);
  fill(entry);
  (above ? above.box : byId('elements')).append(entry.row, entry.box);
  if (node.children) addAll(node.children, entry);
  if (node.contentDocument) addAll([node.contentDocument], entry);
  open(entry, node.nodeType === 9 || node.localName === 'html' || node.localName === 'body');
  return entry;
};
const addAll = (children, above) => {
  for (const child of children) add(child, above, above.depth + 1);
};
const forget = entry => {
  for (const [id, other] of nodes) {
    for (let above = other; above; above = above.above) {
      if (above === entry) { nodes.delete(id); break; }
    }
  }
  entry.row.remove();
  entry.box.remove();
};
const change = (id, alter) => {
  const entry = nodes.get(id);
  if (!entry) return;
  alter(entry);
  fill(entry);
};
listeners['DOM.setChildNodes'] = ({parentId, nodes: children}) => {
  const above = nodes.get(parentId);
  if (!above) return;
  above.box.replaceChildren();
  addAll(children, above);
  open(above, above.wide);
};
listeners['DOM.childNodeInserted'] = ({parentNodeId, previousNodeId, node}) => {
  const above = nodes.get(parentNodeId);
  if (!above) return;
  const before = nodes.get(previousNodeId);
  const made = add(node, above, above.depth + 1);
  if (before) before.box.after(made.row, made.box); else above.box.prepend(made.row, made.box);
};
listeners['DOM.childNodeRemoved'] = ({nodeId}) => {
  const entry = nodes.get(nodeId);
  if (entry) forget(entry);
};
listeners['DOM.childNodeCountUpdated'] = ({nodeId, childNodeCount}) => change(nodeId, entry => {
  entry.node.childNodeCount = childNodeCount;
  open(entry, entry.wide);
});
listeners['DOM.attributeModified'] = ({nodeId, name, value}) => change(nodeId, ({node}) => {
  const list = node.attributes;
  let at = 0;
  while (at < list.length && list[at] !== name) at += 2;
  list[at] = name;
  list[at + 1] = value;
});
listeners['DOM.attributeRemoved'] = ({nodeId, name}) => change(nodeId, ({node}) => {
  for (let at = 0; at < node.attributes.length; at += 2) {
    if (node.attributes[at] === name) node.attributes.splice(at, 2);
  }
});
listeners['DOM.characterDataModified'] = ({nodeId, characterData}) => change(nodeId, entry => {
  entry.node.nodeValue = characterData;
  entry.row.hidden = isBlank(entry.node);
});
const readDocument = async () => {
  const answer = await call('DOM.getDocument', {depth: 4});
  nodes.clear();
  chosen = null;
  byId('elements').replaceChildren();
  if (answer && answer.root) add(answer.root, null, 0);
  const page = await call('Runtime.evaluate', {returnByValue: true, expression:
      'JSON.stringify([document.title, location.href])'});
  if (page && page.result && page.result.type === 'string') {
    const [title, url] = JSON.parse(page.result.value);
    byId('page').textContent = title ? title + ' \u2014 ' + url : url;
    document.title = 'DevTools - ' + url;
  }
};
listeners['DOM.documentUpdated'] = readDocument;
listeners['Page.domContentEventFired'] = readDocument;
let ready = Promise.resolve();
listeners['Edition.inspect'] = async point => {
  await ready;
  const found = await call('DOM.getNodeForLocation', point);
  if (!found) return;
  const pushed = await call('DOM.pushNodesByBackendIdsToFrontend',
                            {backendNodeIds: [found.backendNodeId]});
  if (pushed) choose(pushed.nodeIds[0]);
};

// Console.
const say = (text, kind) => {
  byId('console').append(make('div', 'line ' + kind, text));
  byId('console').scrollTop = byId('console').scrollHeight;
};
const textOf = value => value.type === 'string' ? value.value :
    value.description !== undefined ? value.description : String(value.value);
listeners['Runtime.consoleAPICalled'] = ({type, args}) => say(args.map(textOf).join(' '), type);
const sayThrown = ({text, exception}) =>
    say(exception ? text + ' ' + textOf(exception) : text, 'error');
listeners['Runtime.exceptionThrown'] = ({exceptionDetails}) => sayThrown(exceptionDetails);
listeners['Log.entryAdded'] = ({entry}) => say(entry.text, entry.level);
byId('entry').onkeydown = async event => {
  const expression = byId('entry').value;
  if (event.key !== 'Enter' || !expression) return;
  byId('entry').value = '';
  say('> ' + expression, '');
  const answer = await call('Runtime.evaluate', {expression, replMode: true, userGesture: true});
  if (!answer) return;
  if (answer.exceptionDetails) sayThrown(answer.exceptionDetails);
  else say(textOf(answer.result), '');
};

listeners['Edition.attached'] = () => {
  for (const domain of ['Page', 'DOM', 'Runtime', 'Log']) call(domain + '.enable');
  ready = readDocument();
};
cefeditionInspector('{"id":0}');
</script></body></html>
)page";

}  // namespace cefedition
