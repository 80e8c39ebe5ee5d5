// The inputs of a document: which may be filled, what they say of themselves, and how a value is put into one.

const kTypes = new Set(['text', 'tel', 'email', 'url', 'number', 'date', 'month', 'week', 'time', 'datetime-local', 'radio',
                        'checkbox', 'select-one', 'textarea']);
// What the user types into these can be wrong, and then counts as nothing.
const kPicky = new Set(['number', 'date', 'month', 'week', 'time', 'datetime-local']);
const kLongest = 100;
const kOptions = 300;

const previousSibling = getter(Node, 'previousSibling'), nextSibling = getter(Node, 'nextSibling'),
      nodeValue = getter(Node, 'nodeValue'), textContent = getter(Node, 'textContent'),
      elementCount = getter(Element, 'childElementCount'), findIn = method(Element, 'querySelector'),
      walker = method(Document, 'createTreeWalker');

const byId = (root, id) => nodeType(root) === 9 ? Reflect.apply(Document.prototype.getElementById, root, [id])
                                                : Reflect.apply(DocumentFragment.prototype.getElementById, root, [id]);

const short = text => (text || '').slice(0, kLongest);
const kSelect = 'select-one';

const kUnwanted = ':disabled,input[readonly],textarea[readonly],[role^=search i],[inputmode=search i],[enterkeyhint=search i],' +
    '[autocomplete~=one-time-code i]';
/** The same as a selector for whole trees. */
const kUnwantedInput = `:is(input,select,textarea):is(${kUnwanted})`;

/** Whether an input that kUnwantedInput has not found is of a kind that is filled. */
const isOfUse = (input, type) => kTypes.has(type) && !(input.form && attribute(input.form, 'role') === 'search');

const isWanted = (input, type) => isOfUse(input, type) && !input.matches(kUnwanted);

/** Whether a choice list stands where its page has put it at first. */
const isInitial = list => {
    const at = list.selectedIndex, options = list.options;
    if (at <= 0 || options[at].defaultSelected)
        return true;
    for (let i = 0; i < at && i < kOptions; ++i) {
        if (!options[i].disabled)
            return false;
    }
    return at < kOptions;
};

/** Names of the groups of radio buttons with a choice made, by the form that they belong to. */
const chosenGroups = root => {
    const groups = new Map;
    for (const radio of all(root, 'input[type=radio]:checked')) {
        const names = groups.get(radio.form) || new Set;
        groups.set(radio.form, names.add(radio.name));
    }
    return groups;
};

/** Whether the user could read what stands in it. */
const isInked = style => alphaOf(style.color) >= kFaint && alphaOf(style.webkitTextFillColor) >= kFaint;

const isEmpty = (input, type, groups) => {
    switch (type) {
    case kSelect:
        return isInitial(input);
    case 'checkbox':
        return !input.checked;
    case 'radio': {
        const root = rootNode(input);
        if (!groups.has(root))
            groups.set(root, chosenGroups(root));
        const names = groups.get(root).get(input.form);
        return !input.checked && !(input.name && names && names.has(input.name));
    }
    default:
        return input.value === '' && !(kPicky.has(type) && input.validity.badInput);
    }
};

// --- what it is called ---

const kSilent = new Set(['select', 'option', 'script', 'style', 'textarea', 'noscript', 'template']);

const kLoose = /[^\S ]|  /, kGaps = /\s+/g;

/** A text in one line. Most are, which is sooner seen than done. */
const inLine = text => (kLoose.test(text) ? text.replace(kGaps, ' ') : text).trim();

/** The text inside a node without that of lists and scripts, in one line. */
const textOf = node => {
    if (nodeType(node) === 3)
        return short(inLine(nodeValue(node).slice(0, 1000)));
    if (nodeType(node) !== 1 || kSilent.has(localName(node)))
        return '';
    // Text and nothing else, as in most labels.
    if (!elementCount(node))
        return short(inLine(textContent(node).slice(0, 1000)));
    const texts = walker(ownerDocument(node), node, NodeFilter.SHOW_TEXT | NodeFilter.SHOW_ELEMENT, part =>
        nodeType(part) === 3 ? NodeFilter.FILTER_ACCEPT
                             : kSilent.has(localName(part)) ? NodeFilter.FILTER_REJECT : NodeFilter.FILTER_SKIP);
    let text = '';
    for (let steps = 0; steps < 100 && text.length < 2 * kLongest && texts.nextNode(); ++steps)
        text += ' ' + inLine(nodeValue(texts.currentNode).slice(0, 1000));
    return short(inLine(text));
};

const kControls = 'input:not([type=hidden]),select,textarea';

/** The text next to an input on one side, before any other input. */
const beside = (input, step) => {
    for (let node = input, up = 0; node && nodeType(node) === 1 && up < 4; node = parentNode(node), ++up) {
        if (up > 0 && ['form', 'body', 'table', 'tbody', 'fieldset'].includes(localName(node)))
            return '';
        let steps = 0;
        for (let other = step(node); other && steps < 20; other = step(other), ++steps) {
            if (nodeType(other) === 1 && (findIn(other, kControls) || /^(input|select|textarea)$/.test(localName(other))))
                return '';
            const text = textOf(other);
            if (text)
                return text;
        }
    }
    return '';
};

const named = (input, root) => {
    const names = attribute(input, 'aria-labelledby');
    return !names ? '' : names.split(/\s+/, 5).map(id => {
        const label = id && byId(root, id);
        return label ? textOf(label) : '';
    }).join(' ').trim();
};

/** The texts of the labels in a tree by their inputs. The inputs' own lists of labels cost a walk through the tree each. */
const labelsIn = root => {
    const texts = new Map;
    for (const label of all(root, 'label')) {
        const input = label.control;
        if (input && !texts.get(input))
            texts.set(input, textOf(label));
    }
    return texts;
};

const labelOf = (input, root, labels) => {
    if (!labels.has(root))
        labels.set(root, labelsIn(root));
    const text = labels.get(root).get(input);
    if (text)
        return text;
    return short(named(input, root)) || (isMark(input) && beside(input, nextSibling)) || beside(input, previousSibling);
};

/** What divides lines and their parts cannot stand in a text, nor can halves of pairs. */
const kDividers = /[\x00-\x1f\ud800-\udfff]/, kUntold = /[\x00-\x1f\p{Surrogate}]/gu;

/** A line of a request; FrameReport knows the order. */
const describe = (input, root, number, documentNumber, labels) => {
    const { type, maxLength } = input;
    const told = [type, short(input.name), short(input.id), short(attribute(input, 'autocomplete')),
        short(labelOf(input, root, labels)), short(attribute(input, 'aria-label') || named(input, root) || input.title),
        short(input.placeholder), maxLength > 0 ? maxLength : 0, isMark(input) ? short(input.value) : ''];
    if (type === kSelect) {
        let count = 0;
        for (const option of input.options) {
            if (++count > kOptions)
                break;
            told.push(short(option.value), short(option.text));
        }
    }
    const isClean = !kDividers.test(told.join(''));
    return number + '\t' + documentNumber + '\t' +
        (isClean ? told : told.map(part => String(part).replace(kUntold, ' '))).join('\t');
};

// --- filling ---

const setText = Object.getOwnPropertyDescriptor(HTMLInputElement.prototype, 'value').set,
      setArea = Object.getOwnPropertyDescriptor(HTMLTextAreaElement.prototype, 'value').set;

const send = (input, event) => input.dispatchEvent(event);
const changed = input => {
    send(input, new InputEvent('input', { bubbles: true, composed: true, inputType: 'insertReplacementText' }));
    send(input, new Event('change', { bubbles: true }));
};
const key = (input, kind) =>
    send(input, new KeyboardEvent(kind, { key: 'Unidentified', bubbles: true, composed: true, cancelable: true }));

/** Puts a value into an input the way a user's typing looks to the page; gives whether it has taken it. */
const put = (input, type, value) => {
    if (isMark(input)) {
        input.click();
        return input.checked;
    }
    if (type === kSelect) {
        const at = Number(value), option = input.options[at];
        if (!option || option.disabled || input.selectedIndex === at)
            return false;
        input.selectedIndex = at;
        changed(input);
        return input.selectedIndex === at;
    }
    if (value === '' || (input.maxLength > 0 && value.length > input.maxLength))
        return false;
    key(input, 'keydown');
    Reflect.apply(type === 'textarea' ? setArea : setText, input, [value]);
    if (input.value === '')
        return false;
    changed(input);
    key(input, 'keyup');
    send(input, new FocusEvent('blur', { composed: true }));
    send(input, new FocusEvent('focusout', { bubbles: true, composed: true }));
    return input.value !== '';
};
